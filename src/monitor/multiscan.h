#pragma once

#include "monitor/bank_rotation.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/event_gate.h"

namespace tarnvex::monitor {

/// Multiscan of the BC895XLT: presses the radio's keys so that it scans all ticked conventional
/// banks (boxes 0 to 9) for a while, then each ticked trunked bank (10 to 19) in turn, and so on.
class Multiscan : public BankRotation {
 public:
  static constexpr int kConventionalBanks = 10;
  static constexpr int kBanks = 20;

  /// What Multiscan works on. All of it outlives Multiscan.
  struct Outside {
    PanelBase& panel;
    link::ScannerLink& link;
    platform::EventGate& gate;
    platform::SharedState& state;
    platform::SettingsStore& settings;
    platform::Dialogs& dialogs;
    const platform::Clock& clock;
  };

  explicit Multiscan(Outside outside);

 private:
  void step();
  [[nodiscard]] std::string tickedConventionalBanks() const;
  void scanConventional(const std::string& letters);
  void scanTrunked(int bank);
  void giveUp();
  void flashError();
  void waitBeyond(double seconds);
  void bankClicked();

  Outside outside_;
};

}  // namespace tarnvex::monitor
