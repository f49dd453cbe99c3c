#include "monitor/bc245_modes.h"

#include <algorithm>
#include <array>

#include "link/scanner_commands.h"

namespace tarnvex::monitor {
namespace {

namespace mode245 = link::mode245;
using enum Bc245Branch;

constexpr std::string_view kMotorola = "M";
constexpr std::string_view kEdacs = "E";
constexpr std::nullopt_t kLeft = std::nullopt;

// Code, system and branch, then the states of `Scan`, `Hold`, `Trunk` and `Police`.
constexpr std::array kModes{
    Bc245Mode{mode245::kScan, "", Conventional, true, false},
    Bc245Mode{mode245::kManual, "", Conventional, false, true},
    Bc245Mode{mode245::kSearch, "", Search, false, false},
    Bc245Mode{mode245::kSearchHold, "", Search, false, true},
    Bc245Mode{mode245::kService, "", Search, false, false, kLeft, true},
    Bc245Mode{mode245::kServiceHold, "", Search, false, true, kLeft, true},
    Bc245Mode{mode245::kProgram, kMotorola, Program, kLeft, kLeft, true},
    Bc245Mode{mode245::kProgramEdacs, kEdacs, Program, kLeft, kLeft, true},
    Bc245Mode{mode245::kSelectBank, "", SelectBank, kLeft, kLeft, true},
    Bc245Mode{mode245::kIdSearch, kMotorola, IdSearch, false, false, true},
    Bc245Mode{mode245::kIdSearchEdacs, kEdacs, IdSearch, false, false, true},
    Bc245Mode{mode245::kIdHold, kMotorola, IdSearch, false, true, true},
    Bc245Mode{mode245::kIdHoldEdacs, kEdacs, IdSearch, false, true, true},
    Bc245Mode{mode245::kTrunkScan, kMotorola, Trunked, true, false, true},
    Bc245Mode{mode245::kTrunkScanEdacs, kEdacs, Trunked, true, false, true},
    Bc245Mode{mode245::kTrunkManual, kMotorola, Trunked, false, true, true},
    Bc245Mode{mode245::kTrunkManualEdacs, kEdacs, Trunked, false, true, true},
    Bc245Mode{mode245::kTrunkIdle, kMotorola, Nothing},
    Bc245Mode{mode245::kTrunkSearch, kMotorola, Search, false, kLeft, true},
    Bc245Mode{mode245::kTrunkIdleEdacs, kEdacs, Nothing},
    Bc245Mode{mode245::kTrunkSearchEdacs, kEdacs, Search, false, kLeft, true},
};

}  // namespace

const Bc245Mode* findBc245Mode(std::string_view code) {
  const auto* const mode = std::ranges::find(kModes, code, &Bc245Mode::code);
  return mode == kModes.end() ? nullptr : mode;
}

bool followsIds(std::string_view code) {
  const Bc245Mode* mode = findBc245Mode(code);
  return mode != nullptr && mode->branch == IdSearch;
}

bool holdsId(std::string_view code) {
  return code == mode245::kIdHold || code == mode245::kIdHoldEdacs;
}

}  // namespace tarnvex::monitor
