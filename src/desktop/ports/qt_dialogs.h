#pragma once

#include <QMessageBox>

#include "platform/dialogs.h"
#include "platform/event_gate.h"

namespace tarnvex::desktop {

/// Message boxes over the window in use. The core stays in the call and yields until the box is
/// answered.
class QtDialogs : public platform::Dialogs {
 public:
  explicit QtDialogs(platform::EventGate& gate) : gate_(gate) {}

  platform::Answer messageBox(const std::string& text, const std::string& title,
                              platform::MessageFlags flags) override;
  void beep() override;
  void setBusyPointer(bool busy) override;

 private:
  platform::EventGate& gate_;
  bool busy_ = false;
};

}  // namespace tarnvex::desktop
