#include "monitor/speed_enhancement.h"

#include "link/scanner_commands.h"

namespace tarnvex::monitor {
namespace {

constexpr int kInterval = 2000;

}  // namespace

SpeedEnhancement::SpeedEnhancement(Outside outside)
    : BankRotation(
          outside, "SpeedE", kBanks, kInterval, [this] { step(); },
          [this] {
            followBoxes();
            if (mayAct()) {
              send(link::key::kScan);
            }
          }) {}

void SpeedEnhancement::step() {
  if (!anyTicked()) {
    return;
  }
  do {
    moveOn();
  } while (!ticked(cursor()));
  send(link::command::scanBanks(std::string(1, link::bankLetter(cursor()))));
  send(link::key::kScan);
  reenterTrunking();
}

void SpeedEnhancement::reenterTrunking() {
  const std::string& mode = panel().mode.caption();
  if (mode == link::mode245::kTrunkScan || mode == link::mode245::kTrunkScanEdacs) {
    // Leave the trunked system and enter it again, which takes the radio to that of the new bank.
    send(link::key::kTrunk);
    send(link::key::kTrunk);
  }
}

}  // namespace tarnvex::monitor
