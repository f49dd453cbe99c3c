#include "bench/full_plan.h"

#include "link/tone_table.h"
#include "memory/plan_records.h"
#include "platform/convert.h"

namespace tarnvex::bench {

using memory::ChannelRecord;
using memory::TalkgroupRecord;

void fillPlan(platform::Table& channels, platform::Table& talkgroups, int number) {
  const auto flag = [&](int row, int divisor) { return (row + number) % divisor == 0 ? "X" : " "; };
  const std::string tag = " of plan " + std::to_string(number);
  for (int row = 1; row <= ChannelRecord::kRows; ++row) {
    const auto write = [&](int col, std::string text) {
      channels.setTextMatrix(row, col, std::move(text));
    };
    write(ChannelRecord::Frequency, platform::format(150.0 + row * 0.0125 + number, "0.0000"));
    write(ChannelRecord::Trunk, " ");
    write(ChannelRecord::Delay, flag(row, 2));
    write(ChannelRecord::Lockout, flag(row, 3));
    write(ChannelRecord::Line, flag(row, 5));
    write(ChannelRecord::Ctcss,
          link::ToneTable()[static_cast<std::size_t>((row + number) % 38 + 1)]);
    write(ChannelRecord::AlphaTag, "Station " + std::to_string(row) + tag);
  }
  for (int row = 1; row <= TalkgroupRecord::kRows; ++row) {
    talkgroups.setTextMatrix(row, TalkgroupRecord::Id,
                             platform::format(1000 + row * 16 + number, "000000"));
    talkgroups.setTextMatrix(row, TalkgroupRecord::AlphaTag, "Group " + std::to_string(row) + tag);
    talkgroups.setTextMatrix(row, TalkgroupRecord::Priority, row % 10 == 1 ? "X" : "");
  }
}

}  // namespace tarnvex::bench
