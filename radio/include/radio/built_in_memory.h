#pragma once

#include <span>
#include <string_view>

#include "radio/memory.h"

namespace tarnvex::radio {

/// A channel in the memory of a new radio. The demo plan (demo_plan.h) is written from the same
/// tables, so that plan and radio agree.
struct BuiltInChannel {
  int number;
  Frequency frequency;
  bool trunked;
  bool delay;
  bool lockout;
  int tone;
  std::string_view tag;
};

/// A talkgroup in that memory.
struct BuiltInTalkgroup {
  char bank;
  char group;
  int slot;  ///< 1 to 10
  std::string_view id;
  bool priority;
  std::string_view tag;
};

std::span<const BuiltInChannel> builtInChannels();
std::span<const BuiltInTalkgroup> builtInTalkgroups();

/// The memory of a new radio. Bank B holds a Motorola Type 2 system, bank H an EDACS system; one
/// frequency and one ID of bank B are locked out, and the first channel of every bank is its
/// priority channel.
Memory builtInMemory();

/// The frequencies that the trunked system of a bank uses for its talkgroups. Empty if the bank has
/// no system.
std::span<const Frequency> voiceChannels(char bank);

}  // namespace tarnvex::radio
