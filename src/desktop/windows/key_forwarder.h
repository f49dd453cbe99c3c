#pragma once

#include <QObject>
#include <QStringList>

#include "platform/event_gate.h"
#include "shell/main_form.h"

namespace tarnvex::desktop {

/// Forwards characters that are typed while certain widgets have the focus to the form, as its
/// keyboard control. The widgets see none of them but the blank, which presses a button or ticks a
/// box.
class KeyForwarder : public QObject {
 public:
  KeyForwarder(shell::MainForm& form, platform::EventGate& gate, QObject* parent)
      : QObject(parent), form_(form), gate_(gate) {}

  /// Forwards from the children of `window` with these object names; "MSBank" stands for all of its
  /// members.
  void watch(QWidget* window, const QStringList& names);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  shell::MainForm& form_;
  platform::EventGate& gate_;
  /// The key that is held down here, 0 if none is.
  int down_ = 0;
};

}  // namespace tarnvex::desktop
