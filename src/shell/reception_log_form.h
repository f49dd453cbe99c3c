#pragma once

#include "memory/channel_memory.h"
#include "monitor/reception_log.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/notifier.h"
#include "platform/window.h"

namespace tarnvex::shell {

/// The window of the log of receptions: its rows, and a picture of who was busy when. The window
/// layer reads the rows from the log's file; what the user does with one of them is done here.
class frmReceptionLog {
 public:
  frmReceptionLog(monitor::ReceptionLog& log, memory::ChannelMemory& memory,
                  platform::Dialogs& dialogs);

  /// The tag that the plan has for what was heard; empty if it has none.
  [[nodiscard]] std::string planTag(const monitor::Heard& heard) const;
  /// Sends the radio to the channel of the plan that has the frequency. Beeps where there is none,
  /// and for a talkgroup.
  void tune(const monitor::Heard& heard);
  /// Stores it in the plan under the cursor of its table, as a hit is.
  void store(const monitor::Heard& heard);
  /// The window's own close button.
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
