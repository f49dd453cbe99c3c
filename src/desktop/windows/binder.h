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

/// Shows or hides a widget; one that isn't in a window yet stays off the screen either way.
void showIf(QWidget* widget, bool visible);
/// Keeps a widget's room in its layout while it is hidden.
void keepRoom(QWidget* widget);
/// Gives a widget the focus. One on a page that isn't in front can't take it, and must not when its
/// page comes to the front.
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

  /// Events that mean that the user wants out of a wait: Connect, a COM option, the buttons of a
  /// dialog, which may be the only way on.
  enum class Urgency { Normal, Leaving };

  void bind(QPushButton* widget, platform::Button& model, Urgency urgency = Urgency::Normal);
  void bind(QCheckBox* widget, platform::CheckBox& model);
  void bind(QRadioButton* widget, platform::OptionButton& model, Urgency urgency = Urgency::Normal);
  void bind(QComboBox* widget, platform::ComboBox& model);
  void bind(QListWidget* widget, platform::ListBox& model);
  /// A list in which any number of lines can be selected.
  void bindSelection(QListWidget* widget, platform::ListBox& model);
  /// A list with a box to tick at each line: ticked is `selected`.
  void bindTicks(QListWidget* widget, platform::ListBox& model);
  void bind(QLineEdit* widget, platform::TextBox& model);

  [[nodiscard]] platform::EventGate& gate() { return gate_; }
  void keep(platform::Connection connection) { connections_.push_back(std::move(connection)); }

 private:
  void bindControl(QWidget* widget, platform::Control& model);
  void enter(Urgency urgency, platform::EventGate::Handler handler);
  /// Only the main windows have a forwarder.
  [[nodiscard]] bool isDialogs() const { return forwarder_ == nullptr; }

  platform::EventGate& gate_;
  QObject* forwarder_;
  std::vector<platform::Connection> connections_;
};

}  // namespace tarnvex::desktop
