#pragma once

#include <array>
#include <optional>
#include <string>

#include "radio/air.h"
#include "radio/memory.h"
#include "radio/model.h"

namespace tarnvex::radio {

/// The radio's own on/off settings. The second group exists on the BC245XLT only.
struct Switches {
  bool mute = false;
  bool priority = false;
  bool ctcss = true;
  bool data = false;

  bool edacsDecimal = false;
  bool autoLight = false;
  bool attenuator = false;
  bool statusBit = false;
  bool frequencyId = false;
  bool toneDetection = false;
  bool light = false;
};

/// An ID slot of the trunked bank in use.
struct Slot {
  int group = 0;   ///< 0 to 9
  int number = 1;  ///< 1 to 10
};

/// What has been keyed and not yet entered.
struct Entry {
  /// A search limit.
  enum class Limit { None, Lower, Upper };
  std::string text;
  Limit limit = Limit::None;  ///< which search limit KEY04 will set
  std::optional<Slot> slot;   ///< chosen by "IC"; without one, a keyed ID goes to State::slot
};

/// Everything a radio knows, as plain data. See commands.h and the headers of the keys for what
/// changes it, tuning.h for what it hears, and readings.h for what it reports.
struct State {
  explicit State(Model model);

  Model model;
  Memory memory;
  Switches switches;
  Activity activity = Activity::Scan;
  Activity resume = Activity::Scan;  ///< where trunk programming and Send return to
  Millis now = 0;

  int channel = 1;
  std::array<bool, kBanks> scanBanks{};
  bool searchDelay = true;
  Frequency lower = 0;
  Frequency upper = 0;
  Frequency step = 50;
  Frequency searchAt = 0;  ///< the frequency that a search has reached

  int trunkBank = 1;         ///< the bank whose system is followed
  bool bankKeyOpen = false;  ///< after KEY13: a bank key picks the trunked bank
  int programBank = -1;      ///< trunk programming: the bank, -1 before it is chosen
  Millis acquiredAt = 0;     ///< when TrunkSearch ends; 0 if it doesn't
  Slot slot;
  std::string heldId;
  bool streaming = false;  ///< between "IDN" and "IDF"

  Entry entry;

  /// The transmission on which the receiver has stopped. During a delay it stays here after its
  /// end.
  std::optional<Transmission> stop;
  bool open = false;    ///< squelch
  Millis delay = 2000;  ///< see tuning.h
  Millis dwellUntil = 0;
  std::uint64_t passed = 0;  ///< serial of a transmission that the user moved on from
};

TrunkBank& trunkBank(State& state);
const TrunkBank& trunkBank(const State& state);
Family familyOf(const State& state);
std::string_view modeCode(const State& state);

/// Changes the activity. Clears the entry and the stop.
void enter(State& state, Activity activity);
/// Turns into the other model. Memory and settings stay.
void become(State& state, Model model);
/// The state as lines of key=value, in a fixed order.
std::string describe(const State& state);

}  // namespace tarnvex::radio
