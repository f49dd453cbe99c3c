#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "monitor/keypad.h"
#include "support/world.h"

namespace tarnvex::test {

constexpr auto kLeft = monitor::MouseButton::Left;
constexpr auto kRight = monitor::MouseButton::Right;

/// A radio's front with an open line. The radio answers every line end with a line: "OK", unless
/// `replies` has another answer.
template <class Panel>
struct KeypadRig : testing::Test, OpenLine {
  monitor::KeyBeep keyBeep{settings, dialogs};
  Panel panel;
  int lockouts = 0;
  std::map<std::string, std::string> replies;

  KeypadRig() {
    radio.answer = [this](std::string_view command) {
      const auto found = replies.find(std::string(command));
      std::vector<Piece> pieces{{(found == replies.end() ? "OK" : found->second) + "\r"}};
      if (command.ends_with('\r')) {
        pieces.push_back({"ERR\r", 40});
      }
      return pieces;
    };
  }

  monitor::KeypadOutside outside() {
    return {link, state, keyBeep, [this] { ++lockouts; }};
  }
  void setMode(const std::string& mode) {
    state.CurrentMode = mode;
    panel.mode.setCaption(mode);
  }
  /// What has been sent since the last call. A second line end appears as "|".
  std::string sent() {
    std::string log = radio.takeLog();
    std::replace(log.begin(), log.end(), '\r', '|');
    return log;
  }
  int beeps() { return std::exchange(dialogs.beeps, 0); }
};

}  // namespace tarnvex::test
