#include "monitor/keypad.h"

#include <algorithm>
#include <array>

#include "link/scanner_commands.h"

namespace tarnvex::monitor {
namespace {

namespace key = link::key;

struct TypedKey {
  char character;
  std::string_view command;
};

/// An upper-case letter means holding the key down.
constexpr std::array kTypedKeys{
    TypedKey{'P', key::kPriorityHeld}, TypedKey{'T', key::kTrunkHeld},
    TypedKey{'s', key::kScan},         TypedKey{'m', key::kManual},
    TypedKey{'\r', key::kEnter},       TypedKey{'p', key::kPriority},
    TypedKey{'l', key::kLockout},      TypedKey{'h', key::kHold},
    TypedKey{'i', key::kLimit},        TypedKey{'r', key::kSearch},
    TypedKey{'w', key::kWeather},      TypedKey{'d', key::kDelay},
    TypedKey{'t', key::kTrunk},        TypedKey{'c', key::kTone},
};

}  // namespace

KeyActions::KeyActions(PanelBase& panel, KeypadOutside outside, link::ModeList lockoutModes)
    : panel_(panel), outside_(std::move(outside)), lockoutModes_(lockoutModes) {}

void KeyActions::echoDigit(platform::Label& target, int digit) {
  if (!outside_.state.EntryActive) {
    target.setCaption("");
    outside_.state.EntryActive = true;
  }
  append(target, static_cast<char>('0' + digit));
}

void KeyActions::append(platform::Label& target, char character) {
  target.setCaption(target.caption() + character);
}

bool KeyActions::accepted(std::string_view reply) {
  return reply != key::withLineEnd(link::reply::kError);
}

void KeyActions::holdLockout() {
  if (link::contains(lockoutModes_, mode())) {
    outside_.showLockouts();
  } else {
    send(key::kLockoutHeld);
  }
  endEntry();
}

bool KeyActions::typeKey(char character) {
  if (character == 'L') {
    holdLockout();
    return true;
  }
  const auto* const typed = std::ranges::find(kTypedKeys, character, &TypedKey::character);
  if (typed == kTypedKeys.end()) {
    return false;
  }
  send(typed->command);
  endEntry();
  return true;
}

}  // namespace tarnvex::monitor
