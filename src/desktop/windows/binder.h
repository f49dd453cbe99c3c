#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <vector>

#include "platform/controls.h"
#include "platform/event_gate.h"

namespace tarnvex::desktop {

/// Shows or hides a widget. A widget without a parent is never shown.
void showIf(QWidget* widget, bool visible);
/// Keeps a widget's space in its layout while it is hidden.
void keepRoom(QWidget* widget);
/// Gives a widget the focus, but only if it is visible. Otherwise it would get the focus later,
/// when its page comes to the front.
void focusIfShown(QWidget* widget);

/// Binds widgets to the core's control models: a widget shows its model's state and passes the
/// user's events on, through the event gate. It makes no decisions. The widget gets the control's
/// name as its object name.
///
/// A binder belongs to a window; models, gate and forwarder outlive it.
class Binder {
 public:
  /// `forwarder` is the event filter of the widgets whose controls pass their keys on. A window
  /// without such controls has none.
  explicit Binder(platform::EventGate& gate, QObject* forwarder = nullptr)
      : gate_(gate), forwarder_(forwarder) {}

  /// `Closing` and `Leaving` events end a wait without a time limit: the buttons of a dialog, which
  /// may be the user's only choice, and Connect and the COM options. See `EventGate`.
  enum class Urgency { Normal, Closing, Leaving };

  void bind(QPushButton* widget, platform::Button& model, Urgency urgency = Urgency::Normal);
  void bind(QCheckBox* widget, platform::CheckBox& model);
  void bind(QRadioButton* widget, platform::OptionButton& model, Urgency urgency = Urgency::Normal);
  void bind(QComboBox* widget, platform::ComboBox& model);
  void bind(QListWidget* widget, platform::ListBox& model);
  /// A list in which any number of lines can be selected.
  void bindSelection(QListWidget* widget, platform::ListBox& model);
  /// A list in which each line has a box to tick. A ticked line is `selected`.
  void bindTicks(QListWidget* widget, platform::ListBox& model);
  void bind(QLineEdit* widget, platform::TextBox& model);

  /// A new widget, bound to the model. Its layout will own it.
  template <class Widget, class Model>
  Widget* make(Model& model) {
    auto* widget = new Widget;
    bind(widget, model);
    return widget;
  }

  /// Runs `show` now and after each change.
  void follow(const platform::Notifier<>& changed, std::function<void()> show) {
    keep(changed.follow(std::move(show)));
  }

  [[nodiscard]] platform::EventGate& gate() { return gate_; }
  void keep(platform::Connection connection) { connections_.push_back(std::move(connection)); }

 private:
  void bindControl(QWidget* widget, platform::Control& model);
  template <class Widget, class Model>
  void bindSwitch(Widget* widget, Model& model, Urgency urgency);
  /// Tells the model what the user did, and shows what it made of that, which may be nothing.
  template <class Act, class Show>
  void act(Urgency urgency, QWidget* widget, Act act, Show show);
  void bindCurrentLine(QListWidget* widget, platform::ListBox& model);
  void bindClicks(QListWidget* widget, platform::ListBox& model);
  void enter(Urgency urgency, platform::EventGate::Handler handler);
  /// Whether this is a dialog's binder. Only the main windows have a forwarder.
  [[nodiscard]] bool isDialogs() const { return forwarder_ == nullptr; }

  platform::EventGate& gate_;
  QObject* forwarder_;
  std::vector<platform::Connection> connections_;
};

}  // namespace tarnvex::desktop
