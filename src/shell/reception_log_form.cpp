#include "shell/reception_log_form.h"

#include <array>

#include "memory/plan_lookup.h"
#include "platform/convert.h"

namespace tarnvex::shell {
namespace {

/// The frequency in the form of the channel table.
std::string tableFrequency(const monitor::Heard& heard) {
  return platform::format(static_cast<double>(heard.frequency) / 1e6, "0.0000");
}

/// The ID in the form of the talkgroup table.
std::string tableId(const std::string& talkgroup) {
  return talkgroup.find('-') == std::string::npos ? platform::format(talkgroup, "000000")
                                                  : talkgroup;
}

}  // namespace

frmReceptionLog::frmReceptionLog(monitor::ReceptionLog& log, memory::ChannelMemory& memory,
                                 platform::Dialogs& dialogs)
    : log_(log), memory_(memory), dialogs_(dialogs) {
  cmdClear.onClick = [this] {
    if (dialogs_.askToDestroy("All receptions in the log will be deleted! Continue?",
                              "Confirm Clear", platform::kYesNoWarning) == platform::Answer::Yes) {
      log_.clear();
    }
  };
}

std::string frmReceptionLog::planTag(const monitor::Heard& heard) const {
  if (heard.talkgroup.empty()) {
    return memory::findTag(memory_.MSFlexGrid1(), tableFrequency(heard)).value_or("");
  }
  const std::array forms{heard.talkgroup, tableId(heard.talkgroup)};
  return heard.bank == 0
             ? ""
             : memory::findTalkgroupTag(memory_.MSFlexGrid2(), heard.bank - 1, forms).value_or("");
}

/// If several channels have the frequency, the one that was heard.
std::optional<int> frmReceptionLog::channelOf(const monitor::Heard& heard) const {
  if (!heard.talkgroup.empty()) {
    return std::nullopt;
  }
  const std::string frequency = tableFrequency(heard);
  const platform::Table& channels = memory_.MSFlexGrid1();
  return channels.textMatrix(heard.channel, memory::ChannelRecord::Frequency) == frequency
             ? heard.channel
             : memory::findChannel(channels, frequency);
}

void frmReceptionLog::tune(const monitor::Heard& heard) {
  if (const auto channel = channelOf(heard)) {
    memory_.TuneToRow(*channel);
  } else {
    dialogs_.beep();
  }
}

void frmReceptionLog::store(const monitor::Heard& heard) {
  if (heard.talkgroup.empty()) {
    memory_.StoreHit(memory::HitList::Frequencies, tableFrequency(heard) + " - ");
    return;
  }
  const std::string before(memory_.model().hitIdStart - 1, ' ');
  memory_.StoreHit(memory::HitList::Talkgroups, before + tableId(heard.talkgroup) + " - ");
}

}  // namespace tarnvex::shell
