#pragma once

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QValidator>
#include <memory>

#include "platform/controls.h"
#include "platform/event_gate.h"

namespace tarnvex::desktop {

/// Passes on what the user does in a text box to its model. The binder makes one for each box; it
/// is destroyed with its widget.
///
/// The model sees each typed key before it takes effect, except Enter in a dialog, which presses
/// the main button. What comes in another way (clipboard, mouse, input method, context menu) is
/// accepted only if the model takes the resulting text. Otherwise the box beeps and stays as it is.
///
/// While typed keys wait for the core, the keys that the box handles by itself wait behind them, so
/// that all take effect in the order in which they were pressed.
class TextBoxEditing : public QObject {
 public:
  TextBoxEditing(QLineEdit* widget, platform::TextBox& model, platform::EventGate& gate,
                 bool isDialogs);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Asks the model about a whole text.
  class Rule : public QValidator {
   public:
    Rule(QObject* parent, const platform::TextBox& model) : QValidator(parent), model_(model) {}
    State validate(QString& text, int& cursor) const override;

   private:
    const platform::TextBox& model_;
  };

  void focusIn(Qt::FocusReason reason);
  void released();
  void selectWhole();
  bool key(const QKeyEvent& event);
  /// Whether the model sees the key before it takes effect.
  [[nodiscard]] bool isTyped(const QKeyEvent& event, const std::string& typed) const;
  /// Queues a key for the box if `allowed` says so by then.
  template <class Allowed>
  void enqueue(const QKeyEvent& event, Allowed allowed);
  void replay(int code, Qt::KeyboardModifiers held, const QString& text);

  QLineEdit* widget_;
  platform::TextBox& model_;
  platform::EventGate& gate_;
  bool isDialogs_;
  bool replaying_ = false;
  /// Every queued key shares it.
  std::shared_ptr<int> waiting_ = std::make_shared<int>();
  /// The focus came with a mouse button that is still pressed.
  bool firstClick_ = false;
};

}  // namespace tarnvex::desktop
