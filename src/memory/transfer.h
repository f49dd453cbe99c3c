#pragma once

#include <functional>
#include <optional>
#include <string>

#include "link/poll_hold.h"
#include "link/radio_model.h"
#include "link/scanner_link.h"
#include "memory/plan_history.h"
#include "platform/clock.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/event_gate.h"
#include "platform/non_copyable.h"
#include "platform/shared_state.h"
#include "platform/table.h"

namespace tarnvex::memory {

/// The parts of a main window that a transfer uses. All of them outlive the transfer.
struct TransferWindow {
  const link::RadioModel& model;
  platform::Table& MSFlexGrid1;
  platform::Table& MSFlexGrid2;
  /// Labels of the panel.
  platform::Label& Frequency;
  platform::Label& Channel;
  const platform::Label& mode;
  platform::Timer& Scantimer;
  PlanHistory& history;
  /// Keeps the plan as a backup. May show a message.
  std::function<void()> keepPlan;
};

/// What else a transfer uses. All of it outlives the transfer.
struct TransferOutside {
  platform::SharedState& state;
  link::ScannerLink& link;
  platform::EventGate& gate;
  platform::Dialogs& dialogs;
  const platform::Clock& clock;
};

/// The progress of a transfer, for a progress bar. A total of 0 means that it hasn't started.
class Progress {
 public:
  [[nodiscard]] int done() const { return done_; }
  [[nodiscard]] int total() const { return total_; }
  void start(int total);
  void advance(int steps = 1);
  /// There is nothing more to show.
  void clear() { start(0); }

  platform::Notifier<> changed;

 private:
  int done_ = 0;
  int total_ = 0;
};

/// One transfer of channels or talkgroup IDs, as a local variable of the function that does it.
/// Only one transfer can run at a time. The poll is stopped from `begin` to `end`. If the program
/// ends in between, poll, panel and pointer stay as they are.
class Transfer : private platform::NonCopyable {
 public:
  /// Ends the poll's ID loop, if it is in one. Beeps if another transfer is running; then `granted`
  /// is false and nothing else may be called.
  Transfer(const TransferWindow& window, const TransferOutside& outside);
  ~Transfer();

  [[nodiscard]] bool granted() const { return granted_; }

  /// Stops the poll and shows the status in the panel's main line.
  void begin(const std::string& status);
  void showHourglass() { outside_.dialogs.setBusyPointer(true); }
  void showArrow() { outside_.dialogs.setBusyPointer(false); }
  /// Runs what is queued in the event gate. False if the program has ended.
  [[nodiscard]] bool letOthersRun();
  /// Stops the poll again after other handlers have run, whatever they did. False if the program
  /// has ended.
  [[nodiscard]] bool keepPollStopped();
  /// Keeps the plan as a backup before its rows are overwritten. False if the program has ended.
  [[nodiscard]] bool keepPlan();
  /// Starts the poll. If the program has ended, does nothing and returns false.
  bool end();

  const TransferWindow main;

 private:
  TransferOutside outside_;
  bool granted_;
  std::optional<link::PollHold> hold_;
};

}  // namespace tarnvex::memory
