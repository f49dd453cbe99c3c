#pragma once

#include "monitor/bank_rotation.h"

namespace tarnvex::monitor {

/// Speed Enhancement of the BC245XLT: makes each ticked bank the only active one in turn, so that
/// the radio scans one bank at a time.
class SpeedEnhancement : public BankRotation {
 public:
  static constexpr int kBanks = 10;

  explicit SpeedEnhancement(Outside outside);

 private:
  void step();
  void reenterTrunking();
};

}  // namespace tarnvex::monitor
