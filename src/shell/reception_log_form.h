#pragma once

#include "memory/channel_memory.h"
#include "monitor/reception_log.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/notifier.h"
#include "platform/window.h"

namespace tarnvex::shell {

/// The window of the log of receptions: its rows, and a picture of who was busy when. The window
/// layer reads the rows from the log's file. This form does what the user wants with one of them.
class frmReceptionLog {
 public:
  frmReceptionLog(monitor::ReceptionLog& log, memory::ChannelMemory& memory,
                  platform::Dialogs& dialogs);

  /// The plan's tag for what was heard. Empty if there is none.
  [[nodiscard]] std::string planTag(const monitor::Heard& heard) const;
  /// Sends the radio to the plan's channel with this frequency. Beeps if there is none, and for a
  /// talkgroup.
  void tune(const monitor::Heard& heard);
  /// Stores it in the current row of its table, like a hit.
  void store(const monitor::Heard& heard);
  /// The user closed the window with its own close button.
  void userClose() { closed.notify(); }

  [[nodiscard]] monitor::ReceptionLog& log() { return log_; }
  [[nodiscard]] memory::ChannelMemory& memory() { return memory_; }

  platform::Window window{"frmReceptionLog", "Reception Log"};
  platform::Button cmdClear{"cmdClear", "Clear..."};

  platform::Notifier<> closed;

 private:
  [[nodiscard]] std::optional<int> channelOf(const monitor::Heard& heard) const;

  monitor::ReceptionLog& log_;
  memory::ChannelMemory& memory_;
  platform::Dialogs& dialogs_;
};

}  // namespace tarnvex::shell
