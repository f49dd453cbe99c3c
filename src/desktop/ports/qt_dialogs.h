#pragma once

#include <QElapsedTimer>
#include <QMessageBox>
#include <QPointer>

#include "platform/dialogs.h"
#include "platform/event_gate.h"

namespace tarnvex::desktop {

/// Message boxes and small dialogs, over the window in use. The core stays in the call and yields
/// until the user has answered.
class QtDialogs : public platform::Dialogs {
 public:
  explicit QtDialogs(platform::EventGate& gate) : gate_(gate) {}

  platform::Answer messageBox(const std::string& text, const std::string& title,
                              platform::MessageFlags flags) override;
  platform::Answer askToDestroy(const std::string& text, const std::string& title,
                                platform::MessageFlags flags) override;
  std::string inputBox(const std::string& prompt, const std::string& title) override;
  std::optional<platform::Colour> chooseColour(platform::Colour current) override;
  void beep() override;
  void setBusyPointer(bool busy) override;

 private:
  /// `preset` is the button that Enter presses. If it is none, the box chooses.
  platform::Answer ask(const std::string& text, const std::string& title,
                       platform::MessageFlags flags, QMessageBox::StandardButton preset);
  std::string lineFrom(const QString& text);

  platform::EventGate& gate_;
  bool busy_ = false;
  QElapsedTimer lastBeep_;
};

}  // namespace tarnvex::desktop
