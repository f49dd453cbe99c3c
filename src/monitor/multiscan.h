#pragma once

#include "monitor/bank_rotation.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/event_gate.h"

namespace tarnvex::monitor {

/// Multiscan of the BC895XLT: alternates the radio between one pass of the ticked conventional
/// banks (boxes 0 to 9) and each ticked trunked bank (10 to 19) in turn, by pressing its keys.
class Multiscan : public BankRotation {
 public:
  static constexpr int kConventionalBanks = 10;
  static constexpr int kBanks = 20;

  /// Everything it refers to outlives Multiscan.
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
