#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/table.h"

/// Finds channels and tags in the plan's two tables. The poll calls these functions. They search
/// 300 or about 100 rows, which is fast enough without an index.
namespace tarnvex::memory {

/// The bank (0 to 9) of a channel (1 to 300).
int bankOfChannel(int channel);

/// The first row with exactly this frequency text.
std::optional<int> findChannel(const platform::Table& channels, std::string_view frequency);

/// The first row with this frequency, in MHz, in whatever form the table has it.
std::optional<int> findChannel(const platform::Table& channels, double megahertz);

/// The tag of the first row that has this frequency and a tag.
std::optional<std::string> findTag(const platform::Table& channels, std::string_view frequency);

/// The tag of the first row that has this frequency, this channel number and a tag.
std::optional<std::string> findTag(const platform::Table& channels, std::string_view frequency,
                                   std::string_view channel);

/// The last of a bank's own rows with an ID that can be written in several forms.
std::optional<int> findTalkgroup(const platform::Table& talkgroups, int bank,
                                 std::span<const std::string> forms);

/// The tag of a talkgroup ID in a bank, possibly empty. If several rows have the ID, the last one
/// counts. Nothing if none has it. Deliberate: the search begins one row early, so an ID in the
/// last slot of the bank before is found too.
std::optional<std::string> findTalkgroupTag(const platform::Table& talkgroups, int bank,
                                            std::string_view id);

/// The tag of the row that `findTalkgroup` finds.
std::optional<std::string> findTalkgroupTag(const platform::Table& talkgroups, int bank,
                                            std::span<const std::string> forms);

}  // namespace tarnvex::memory
