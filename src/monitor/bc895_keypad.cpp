#include "monitor/bc895_keypad.h"

#include <algorithm>

#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::monitor {
namespace {

constexpr std::string_view kRemote = "RMT";

namespace key = link::key;
namespace mode = link::mode895;
using link::contains;
using platform::isDigit;

struct PressedKey {
  std::string_view caption;
  std::string_view command;
  bool endsEntry = true;
};

/// Keys that send one command. Deliberate: "DIM" and "CTCSS" don't end an entry, so digits keyed
/// after them are added to those before.
constexpr std::array kLeft{
    PressedKey{"SCAN", key::kScan},        PressedKey{"MANUAL", key::kManual},
    PressedKey{"E ", key::kEnter},         PressedKey{"PRI", key::kPriority},
    PressedKey{"HOLD", key::kHold},        PressedKey{"LIMIT", key::kLimit},
    PressedKey{"SRC", key::kSearch},       PressedKey{"WX", key::kWeather},
    PressedKey{"DATA", key::kData},        PressedKey{"DELAY", key::kDelay},
    PressedKey{"TRUNK", key::kTrunk},      PressedKey{"DIM", key::kLight, false},
    PressedKey{"STEP", key::kStep},        PressedKey{"AUX", key::kAux},
    PressedKey{"SEND", key::kSend},        PressedKey{"AUTO", key::kAuto},
    PressedKey{"CTCSS", key::kTone, false}};

constexpr std::array kRight{
    PressedKey{"PRI", key::kPriorityHeld}, PressedKey{"HOLD", key::kHoldHeld},
    PressedKey{"LIMIT", key::kLimitHeld},  PressedKey{"DELAY", key::kDelayHeld},
    PressedKey{"TRUNK", key::kTrunkHeld},  PressedKey{"CTCSS", key::kToneHeld}};

constexpr std::array kLockoutModes{mode::kSearch,      mode::kSearchHold, mode::kWeather,
                                   mode::kWeatherHold, mode::kIdSearch,   mode::kIdHold,
                                   mode::kTrunkScan,   mode::kTrunkManual};
/// Modes in which the point key means the "-" of an ID.
constexpr std::array kDashModes{mode::kIdHold, mode::kTrunkScan, mode::kTrunkManual};

bool isBank(char character) {
  return character >= 'A' && character <= 'J';
}

void press(KeyActions& actions, std::span<const PressedKey> keys, std::string_view caption) {
  const auto pressed = std::ranges::find(keys, caption, &PressedKey::caption);
  if (pressed == keys.end()) {
    return;
  }
  actions.send(pressed->command);
  if (pressed->endsEntry) {
    actions.endEntry();
  }
}

}  // namespace

Bc895Keypad::Bc895Keypad(PanelState& panel, KeypadOutside outside, std::function<void()> unload)
    : panel_(panel),
      actions_(panel, std::move(outside), kLockoutModes),
      unload_(std::move(unload)) {}

bool Bc895Keypad::leaves(int index, MouseButton button) {
  return button == MouseButton::Left && index >= 0 && index < static_cast<int>(kCaptions.size()) &&
         kCaptions[static_cast<std::size_t>(index)] == kRemote;
}

void Bc895Keypad::press(int index, MouseButton button) {
  if (index < 0 || index >= static_cast<int>(kCaptions.size())) {
    return;
  }
  actions_.beep();
  const std::string_view caption = kCaptions[static_cast<std::size_t>(index)];
  if (button == MouseButton::Right) {
    pressRight(caption);
  } else if (button == MouseButton::Left) {
    pressLeft(caption);
  }
}

void Bc895Keypad::pressRight(std::string_view caption) {
  if (caption == "L/O") {
    actions_.holdLockout();
  } else {
    monitor::press(actions_, kRight, caption);
  }
}

void Bc895Keypad::pressLeft(std::string_view caption) {
  if (caption == ".") {
    keyPoint();
  } else if (caption == "L/O") {
    keyLockout();
  } else if (caption == kRemote) {
    unload_();
  } else if (caption.size() == 1 && isDigit(caption[0])) {
    keyDigit(caption[0] - '0');
  } else if (caption.size() == 1 && isBank(caption[0])) {
    actions_.send(key::bank(caption[0]));
    actions_.endEntry();
  } else {
    monitor::press(actions_, kLeft, caption);
  }
}

/// In the ID modes the key locks out the ID on the display.
void Bc895Keypad::keyLockout() {
  if (contains(mode::kIdModes, actions_.mode())) {
    actions_.send(link::command::lockId(link::kLockout895.lock, panel_.Frequency.caption()));
  } else {
    actions_.send(key::kLockout);
  }
  actions_.endEntry();
}

void Bc895Keypad::keyDigit(int digit) {
  actions_.send(key::number(digit));
  actions_.echoDigit(actions_.mode() == mode::kToneEntry ? panel_.CTCSS : panel_.Frequency, digit);
}

Bc895Keypad::Point Bc895Keypad::point() {
  const std::string& mode = actions_.mode();
  return mode == mode::kToneEntry ? Point{panel_.CTCSS, '.'}
                                  : Point{panel_.Frequency, contains(kDashModes, mode) ? '-' : '.'};
}

void Bc895Keypad::keyPoint() {
  const std::string reply = actions_.send(key::kPoint);
  if (!actions_.state().EntryActive) {
    return;
  }
  const auto [target, character] = point();
  if (target.caption().find(character) == std::string::npos && KeyActions::accepted(reply)) {
    KeyActions::append(target, character);
  }
}

void Bc895Keypad::type(char character) {
  if (actions_.typeKey(character)) {
    return;
  }
  if (isDigit(character)) {
    keyDigit(character - '0');
  } else if (character == '.') {
    actions_.send(key::kPoint);
    // Deliberate: the keyboard echoes every point, even a second one.
    if (actions_.state().EntryActive) {
      const auto [target, mark] = point();
      KeyActions::append(target, mark);
    }
  } else if (isBank(character)) {
    // Deliberate: unlike the bank's key on the panel, this doesn't end an entry, so digits keyed
    // after it are added to those before.
    actions_.send(key::bank(character));
  }
}

}  // namespace tarnvex::monitor
