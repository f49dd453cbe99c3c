#pragma once

#include <QKeyEvent>
#include <QObject>
#include <functional>

#include "platform/event_gate.h"
#include "shell/main_form.h"

namespace tarnvex::desktop {

/// Forwards typed characters to the form, which controls the radio with them. It is the event
/// filter of the panel, the tab strip and the controls that pass their keys on. These widgets
/// themselves only get the blank, which presses a button or ticks a box. Page Up and Page Down turn
/// the knob, unless they scroll something.
class KeyForwarder : public QObject {
 public:
  KeyForwarder(shell::MainForm& form, platform::EventGate& gate, QObject* parent)
      : QObject(parent), form_(form), gate_(gate) {}

  /// Turns the knob of a radio that has one.
  std::function<void(bool up)> onPageKey;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Whether the key is dealt with.
  bool press(const QKeyEvent& key, const QObject& watched);
  bool turnPage(const QKeyEvent& key, const QObject& watched);

  shell::MainForm& form_;
  platform::EventGate& gate_;
  /// The key that is held down. 0 if there is none.
  int down_ = 0;
};

}  // namespace tarnvex::desktop
