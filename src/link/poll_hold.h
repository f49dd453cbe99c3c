#pragma once

#include "platform/controls.h"
#include "platform/non_copyable.h"

namespace tarnvex::link {

/// Stops a main window's poll while it exists. Its destructor starts the poll, whether it ran
/// before or not. For work that needs the radio to itself: transfers, trying out a baud rate, the
/// ID search of a BC245XLT.
///
/// The poll timer is set directly only where it starts or stops for good: the window's load,
/// Connect and the COM options start it; silence and the switch to the other radio stop it.
class PollHold : private platform::NonCopyable {
 public:
  explicit PollHold(platform::Timer& poll) : poll_(poll) { renew(); }
  ~PollHold() {
    if (restarts_) {
      poll_.setEnabled(true);
    }
  }

  /// Stops the poll again. Call it after other handlers have run, since Connect or a COM option may
  /// have started the poll.
  void renew() { poll_.setEnabled(false); }
  /// From now on the destructor leaves the poll as it is.
  void giveUp() { restarts_ = false; }

 private:
  platform::Timer& poll_;
  bool restarts_ = true;
};

}  // namespace tarnvex::link
