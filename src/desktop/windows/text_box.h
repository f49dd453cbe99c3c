#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QValidator>

#include "platform/controls.h"
#include "platform/event_gate.h"

namespace tarnvex::desktop {

/// Passes on what the user does in a text box to its model. The binder makes one for each box; it
/// is destroyed with its widget.
///
/// The model sees each typed key before it takes effect, except Enter in a dialog, which presses
/// the main button. What comes in another way (clipboard, mouse, input method, context menu) is
/// accepted only if the model takes the resulting text. Otherwise the box beeps and stays as it is.
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
  void tellFocus();
  bool key(const class QKeyEvent& event);
  void replay(int code, const QString& text);

  QLineEdit* widget_;
  platform::TextBox& model_;
  platform::EventGate& gate_;
  bool isDialogs_;
  bool replaying_ = false;
  /// The focus came with a mouse button that is still pressed.
  bool firstClick_ = false;
};

}  // namespace tarnvex::desktop
