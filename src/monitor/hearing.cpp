#include "monitor/hearing.h"

#include <cmath>

#include "link/tone_table.h"
#include "memory/plan_lookup.h"
#include "memory/plan_records.h"
#include "platform/convert.h"
#include "trunking/talkgroup_id.h"

namespace tarnvex::monitor {

std::optional<std::int64_t> hertzOf(std::string_view shown) {
  const double hertz = platform::toReal(shown).value_or(0) * 1e6;
  return link::readsAsFrequency(shown) && hertz > 0 ? std::optional(std::llround(hertz))
                                                    : std::nullopt;
}

bool namesTalkgroup(std::string_view text) {
  return text.find_first_not_of("0123456789-") == std::string_view::npos &&
         text.find_first_of("123456789") != std::string_view::npos && !memory::meansNoId(text);
}

Heard Hearing::begin(int bars) const {
  Heard heard;
  heard.mode = state_.CurrentMode;
  // While digits are being keyed, the tag on the front belongs to something else.
  heard.tag = state_.EntryActive ? std::string() : front_.Alpha.caption();
  heard.bars = bars;
  return heard;
}

void Hearing::channel(const link::ChannelReply& reply, bool toneSquelch, int bars) {
  const auto hertz = hertzOf(reply.shownFrequency());
  const auto number = reply.number();
  if (!hertz || !number || *number < 1) {
    return;
  }
  heard_ = begin(bars);
  heard_->frequency = *hertz;
  heard_->channel = *number;
  heard_->bank = memory::bankOfChannel(*number) + 1;
  const std::string* tone = link::toneText(reply.tone());
  if (toneSquelch && tone != nullptr) {
    heard_->tone = platform::toReal(*tone).value_or(0);
  }
}

/// Looks the tag up, since the front may still show that of the frequency before.
void Hearing::frequency(const link::SignalReply& reply, int bars) {
  const std::string shown = reply.shownFrequency();
  if (const auto hertz = hertzOf(shown)) {
    heard_ = begin(bars);
    heard_->frequency = *hertz;
    heard_->tag = memory::findTag(channels_, shown).value_or("");
  }
}

void Hearing::talkgroup(const std::string& id, std::optional<int> bank,
                        const std::optional<std::string>& frequency, int bars) {
  const std::string text(platform::trimmed(id));
  if (!namesTalkgroup(text)) {
    return;
  }
  heard_ = begin(bars);
  heard_->talkgroup = trunking::shownId(text);
  heard_->frequency = hertzOf(frequency.value_or("")).value_or(0);
  heard_->bank = bank ? *bank + 1 : 0;
  // The caption is "P  3" if the slot has the priority ID.
  const std::string& slot = front_.Channel.caption();
  heard_->channel = platform::toInteger(slot.substr(slot.find_last_of(' ') + 1)).value_or(0);
}

void Hearing::tell() {
  listener_.tick(heard_ ? &*heard_ : nullptr);
  heard_.reset();
}

}  // namespace tarnvex::monitor
