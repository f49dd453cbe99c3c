#pragma once

#include <string>
#include <utility>

#include "link/radio_model.h"
#include "link/scanner_link.h"
#include "platform/clock.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/event_gate.h"
#include "platform/non_copyable.h"
#include "platform/shared_state.h"
#include "platform/table.h"

namespace tarnvex::memory {

/// What a transfer drives of the main window. All of it outlives the transfer.
struct TransferWindow {
  const link::RadioModel& model;
  platform::Table& MSFlexGrid1;
  platform::Table& MSFlexGrid2;
  /// Labels of the panel.
  platform::Label& Frequency;
  platform::Label& Channel;
  const platform::Label& mode;
  platform::Timer& Scantimer;
};

/// The right to transfer, which one transfer at a time has: several can be asked for where the
/// dialogs don't block their window. Given back at its end.
class TransferTurn : private platform::NonCopyable {
 public:
  explicit TransferTurn(platform::SharedState& state)
      : state_(state), granted_(!std::exchange(state.TransferRunning, true)) {}
  ~TransferTurn() {
    if (granted_) {
      state_.TransferRunning = false;
    }
  }

  [[nodiscard]] bool granted() const { return granted_; }

 private:
  platform::SharedState& state_;
  bool granted_;
};

/// What a transfer works with beside the main window; outlives it.
struct TransferOutside {
  platform::SharedState& state;
  link::ScannerLink& link;
  platform::EventGate& gate;
  platform::Dialogs& dialogs;
  const platform::Clock& clock;
};

}  // namespace tarnvex::memory
