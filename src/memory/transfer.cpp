#include "memory/transfer.h"

#include <utility>

namespace tarnvex::memory {

void Progress::start(int total) {
  done_ = 0;
  total_ = total;
  changed.notify();
}

void Progress::advance(int steps) {
  done_ += steps;
  changed.notify();
}

Transfer::Transfer(const TransferWindow& window, const TransferOutside& outside)
    : main(window),
      outside_(outside),
      granted_(!std::exchange(outside.state.TransferRunning, true)) {
  if (!granted_) {
    outside_.dialogs.beep();
    return;
  }
  outside_.link.ids().end();
}

Transfer::~Transfer() {
  if (hold_) {
    hold_->giveUp();
  }
  if (granted_) {
    outside_.state.TransferRunning = false;
  }
}

void Transfer::begin(const std::string& status) {
  hold_.emplace(main.Scantimer);
  main.Frequency.setCaption(status);
}

bool Transfer::letOthersRun() {
  outside_.gate.yield();
  return keepPollStopped();
}

bool Transfer::keepPollStopped() {
  if (outside_.gate.ended()) {
    return false;
  }
  hold_->renew();
  return true;
}

bool Transfer::keepPlan() {
  main.keepPlan();
  return keepPollStopped();
}

bool Transfer::end() {
  if (outside_.gate.ended()) {
    return false;
  }
  hold_.reset();
  return true;
}

}  // namespace tarnvex::memory
