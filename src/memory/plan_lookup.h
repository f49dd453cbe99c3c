#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/table.h"

/// Lookups of what the radio shows in the plan's two tables. Linear searches over 300 and some 100
/// rows: quick enough for the poll, so there is no index beside the tables.
namespace tarnvex::memory {

/// The bank index 0 to 9 that holds a channel from 1 to 300.
int bankOfChannel(int channel);

/// The first channel row whose frequency equals the text.
std::optional<int> findChannel(const platform::Table& channels, std::string_view frequency);

/// The first channel row whose frequency is that number of MHz, however it is written.
std::optional<int> findChannel(const platform::Table& channels, double megahertz);

/// The tag of the first channel row with that frequency and a tag; nothing if there is none.
std::optional<std::string> findTag(const platform::Table& channels, std::string_view frequency);

/// The tag of the first row with that frequency, that channel label and a tag; nothing if there is
/// none.
std::optional<std::string> findTag(const platform::Table& channels, std::string_view frequency,
                                   std::string_view channel);

/// The tag of a talkgroup ID in a bank: of the last of its rows with that ID, possibly empty;
/// nothing if no row has it. The row just before the bank counts with it, as it always has: plans
/// rely on what they show.
std::optional<std::string> findTalkgroupTag(const platform::Table& talkgroups, int bank,
                                            std::string_view id);

/// Likewise of an ID that may stand there in several forms, in the bank's own rows only.
std::optional<std::string> findTalkgroupTag(const platform::Table& talkgroups, int bank,
                                            std::span<const std::string> forms);

}  // namespace tarnvex::memory
