#include "monitor/bc245_keypad.h"

#include <algorithm>

#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::monitor {
namespace {

namespace key = link::key;
namespace mode = link::mode245;
using link::contains;

struct ClickedKey {
  std::string_view label;
  std::string_view command;
};

constexpr std::array kClicked{
    ClickedKey{"Label2", key::kScan},    ClickedKey{"Label3", key::kManual},
    ClickedKey{"Label5", key::kWeather}, ClickedKey{"Label21", key::kLimit},
    ClickedKey{"Label22", key::kSearch}, ClickedKey{"Label23", key::kHold},
    ClickedKey{"Label24", key::kDelay},  ClickedKey{"Label26", key::kData}};

struct PressedKey {
  std::string_view label;
  /// The command of the right button; the next one is that of the left.
  std::string_view held;
  std::string_view command;
  /// Whether holding the key down also clears `DigitKeyed`.
  bool clearsDigitKeyed = false;
};

constexpr std::array kPressed{PressedKey{"Label4", key::kTrunkHeld, key::kTrunk, true},
                              PressedKey{"Label6", key::kPriorityHeld, key::kPriority}};

struct DigitKey {
  std::string_view label;
  int digit;
};

constexpr std::array kDigits{DigitKey{"Label8", 1},  DigitKey{"Label9", 2},  DigitKey{"Label10", 3},
                             DigitKey{"Label12", 4}, DigitKey{"Label13", 5}, DigitKey{"Label14", 6},
                             DigitKey{"Label15", 7}, DigitKey{"Label16", 8}, DigitKey{"Label17", 9},
                             DigitKey{"Label19", 0}};

constexpr std::array kScanModes{mode::kScan, mode::kTrunkScan, mode::kTrunkScanEdacs};
constexpr std::array kLockoutModes{
    mode::kSearch,         mode::kSearchHold,      mode::kService,       mode::kServiceHold,
    mode::kProgramEdacs,   mode::kSelectBank,      mode::kIdSearch,      mode::kIdHold,
    mode::kTrunkScan,      mode::kTrunkManual,     mode::kIdSearchEdacs, mode::kIdHoldEdacs,
    mode::kTrunkScanEdacs, mode::kTrunkManualEdacs};
/// Modes in which the point key means the "-" of an ID. Deliberate: the list for the panel's key is
/// shorter than the keyboard's. In the other modes the panel's key echoes a point.
constexpr std::array kPanelDashModes{mode::kIdSearch, mode::kTrunkManual, mode::kIdHoldEdacs,
                                     mode::kTrunkManualEdacs};
constexpr std::array kKeyboardDashModes{mode::kIdSearch,    mode::kIdHold,
                                        mode::kTrunkManual, mode::kIdSearchEdacs,
                                        mode::kIdHoldEdacs, mode::kTrunkManualEdacs};

/// The entry for a label, or nullptr.
template <class Keys>
const typename Keys::value_type* find(const Keys& keys, std::string_view label) {
  const auto* const found = std::ranges::find(keys, label, &Keys::value_type::label);
  return found == keys.end() ? nullptr : found;
}

}  // namespace

Bc245Keypad::Bc245Keypad(Bc245Panel& panel, const platform::OptionButton& Option8,
                         KeypadOutside outside)
    : panel_(panel), option8_(Option8), actions_(panel, std::move(outside), kLockoutModes) {}

/// The radio answers the second line end too, and the two answers may arrive together. If they
/// don't, the second one must be read here: the next exchange would discard it only if it had
/// arrived by then. Otherwise the poll could take it for the answer of another radio.
std::string Bc245Keypad::sendKey(std::string_view command) {
  std::string reply = actions_.send(key::withLineEnd(command));
  if (reply.find('\r') == std::string::npos) {
    actions_.skipReply();
  }
  return reply;
}

void Bc245Keypad::clearEntry() {
  actions_.state().EntryBuffer.clear();
  actions_.endEntry();
}

bool Bc245Keypad::scanning() {
  return contains(kScanModes, actions_.state().CurrentMode);
}

void Bc245Keypad::press(std::string_view label, MouseButton button) {
  const bool held = button == MouseButton::Right;
  if (label == "Label1" && held) {
    // Deliberate: holding the light key doesn't beep, unlike all other keys.
    sendKey(key::kLightHeld);
    actions_.state().EntryBuffer.clear();
  } else if (label == "Label25") {
    pressLockout(button);
  } else if (const auto* pressed = find(kPressed, label)) {
    actions_.beep();
    sendKey(held ? pressed->held : pressed->command);
    clearEntry();
    if (held && pressed->clearsDigitKeyed) {
      actions_.state().DigitKeyed = false;
    }
  }
}

void Bc245Keypad::pressLockout(MouseButton button) {
  actions_.beep();
  if (button == MouseButton::Left) {
    sendKey(key::kLockout);
    clearEntry();
  } else {
    actions_.holdLockout();
  }
}

void Bc245Keypad::click(std::string_view label) {
  if (const auto* clicked = find(kClicked, label)) {
    actions_.beep();
    sendKey(clicked->command);
    clearEntry();
  } else if (const auto* digit = find(kDigits, label)) {
    clickDigit(digit->digit);
  } else if (label == "Label18") {
    clickPoint();
  } else if (label == "Label20") {
    clickEnter();
  } else if (label == "Label1") {
    clickLight();
  }
}

/// Deliberate: the light key doesn't end an entry, but empties its buffer. The next digit begins a
/// new number.
void Bc245Keypad::clickLight() {
  actions_.beep();
  sendKey(key::kLight);
  actions_.state().EntryBuffer.clear();
}

void Bc245Keypad::clickEnter() {
  actions_.beep();
  if (!scanning()) {
    sendKey(key::kEnter);
    clearEntry();
  }
}

void Bc245Keypad::clickDigit(int digit) {
  actions_.beep();
  if (scanning()) {
    ToggleLetter(digit);
    return;
  }
  const std::string reply = sendKey(key::number(digit));
  addToEntry(static_cast<char>('0' + digit), reply);
  actions_.state().DigitKeyed = true;
  actions_.state().EntryActive = true;
}

/// The radio's point key is also its attenuator key, so the attenuator's state is asked for each
/// time.
void Bc245Keypad::clickPoint() {
  actions_.beep();
  const std::string reply = sendKey(key::kPoint);
  auto& state = actions_.state();
  if (state.EntryActive) {
    const char mark = contains(kPanelDashModes, actions_.mode()) ? '-' : '.';
    if (state.EntryBuffer.find(mark) == std::string::npos) {
      addToEntry(mark, reply);
    } else {
      panel_.Frequency.setCaption(state.EntryBuffer);
    }
  }
  panel_.Att.setVisible(actions_.send(link::kAttenuator.read) == link::kAttenuator.on);
}

void Bc245Keypad::addToEntry(char character, std::string_view reply) {
  std::string& buffer = actions_.state().EntryBuffer;
  if (KeyActions::accepted(reply)) {
    buffer += character;
  }
  panel_.Frequency.setCaption(buffer);
}

void Bc245Keypad::ToggleLetter(int digit) {
  const auto word = option8_.value() ? link::command::kScanBanks : link::command::kTrunkScanBanks;
  const char letter = link::bankLetter((digit + 9) % 10);
  const std::string reply = actions_.insist(word);
  // Any other text would go back to the radio as its banks.
  if (!reply.starts_with(word) && reply != link::reply::kNothing) {
    return;
  }
  std::string list = link::bankList(reply);
  const std::size_t place = list.find(letter);
  if (place == std::string::npos) {
    list += letter;
  } else {
    list.erase(place, 1);
  }
  actions_.send(link::command::setBankList(word, list));
}

void Bc245Keypad::type(char character) {
  if (actions_.typeKey(character)) {
    return;
  }
  if (platform::isDigit(character)) {
    typeDigit(character - '0');
  } else if (character == '.') {
    typePoint();
  }
}

void Bc245Keypad::typeDigit(int digit) {
  if (scanning()) {
    ToggleLetter(digit);
    actions_.endEntry();
    return;
  }
  actions_.send(key::number(digit));
  actions_.echoDigit(panel_.Frequency, digit);
  actions_.state().DigitKeyed = true;
}

void Bc245Keypad::typePoint() {
  actions_.send(key::kPoint);
  if (actions_.state().EntryActive) {
    KeyActions::append(panel_.Frequency, contains(kKeyboardDashModes, actions_.mode()) ? '-' : '.');
  }
}

}  // namespace tarnvex::monitor
