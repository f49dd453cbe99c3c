#include "link/scanner_commands.h"
#include "memory/frequency_file.h"
#include "memory/plan_lookup.h"
#include "monitor/bc895_poll.h"
#include "monitor/hit_capture.h"
#include "platform/convert.h"
#include "trunking/talkgroup_id.h"

// The part of the BC895XLT's poll that deals with talkgroup IDs.
namespace tarnvex::monitor {

namespace command = link::command;
namespace reply = link::reply;
namespace mode895 = link::mode895;

void Bc895Poll::trunkedVoice(const std::string& mode) {
  const bool scanning = mode == mode895::kTrunkScan;
  panel_.Scan.setVisible(scanning);
  panel_.Hold.setVisible(!scanning);
  panel_.Search.setVisible(false);
  panel_.showBanks(scanning ? link::bankLetters(ask(command::kTrunkScanBanks))
                            : link::TrunkIdReply(ask(command::kActiveId)).bank());
  panel_.Bank.setVisible(true);
  for (auto* label : {&panel_.CTCSS, &panel_.MHZ, &panel_.CtcssStat}) {
    label->setVisible(false);
  }
  panel_.Trunk.setVisible(true);
  panel_.Delay.setVisible(asksOn(command::kDelay, reply::kDelayOn));
  const link::TrunkIdReply id(ask(command::kActiveId));
  if (id.isNothing()) {
    showNothingActive();
  } else {
    showVoiceId(id);
  }
}

void Bc895Poll::showVoiceId(const link::TrunkIdReply& answer) {
  const std::string id = answer.id();
  if (link::readsAsId(id)) {
    panel_.Channel.setCaption(answer.slot());
    const std::string shown = trunking::shownId(id);
    if (showTalkgroupTag(id)) {
      showFrequency(shown);
    } else {
      // Deliberate: written even while the user is keying digits. An ID on a frequency outside the
      // plan overwrites them.
      panel_.Frequency.setCaption(shown);
    }
  } else {
    // Deliberate: there is no ID to show, but the radio is asked the same questions.
    ask(command::kSignal);
  }
  panel_.LO.setVisible(asksOn(command::kLockout, reply::kLockoutOn));
}

bool Bc895Poll::showTalkgroupTag(const std::string& id) {
  const link::SignalReply signal(ask(command::kSignal));
  const auto frequency = signal.tableFrequency();
  const auto channel =
      frequency ? memory::findChannel(outside_.MSFlexGrid1, *frequency) : std::optional<int>();
  if (!channel) {
    panel_.Alpha.setCaption("");
  } else if (!state().EntryActive) {
    panel_.Alpha.setCaption(
        memory::findTalkgroupTag(outside_.MSFlexGrid2, memory::bankOfChannel(*channel), id)
            .value_or(""));
  }
  takeBars(signal);
  // In manual mode the radio may name an ID that isn't heard.
  if (bars_ > 0 || state().CurrentMode != mode895::kTrunkManual) {
    hearing_.talkgroup(id, channel ? std::optional(memory::bankOfChannel(*channel)) : std::nullopt,
                       frequency, bars_);
  }
  return channel.has_value();
}

void Bc895Poll::enterIdMode(bool hold) {
  panel_.Alpha.setCaption("");
  panel_.Trunk.setVisible(true);
  for (auto* label : {&panel_.MHZ, &panel_.CTCSS, &panel_.CtcssStat, &panel_.Bank}) {
    label->setVisible(false);
  }
  panel_.hideBanks();
  panel_.Channel.setCaption("");
  panel_.Search.setVisible(true);
  panel_.Scan.setVisible(false);
  panel_.Hold.setVisible(hold);
}

void Bc895Poll::holdId() {
  enterIdMode(true);
  ids().begin();
  while (ids().on() && state().CurrentMode == mode895::kIdHold) {
    holdRound();
  }
  ids().end();
}

/// Reads one line per round. The flush before "MD" discards all others; the loop doesn't try to
/// catch up.
void Bc895Poll::holdRound() {
  outside_.gate.yield();
  if (!ids().on()) {
    return;
  }
  if (panel_.Frequency.caption() == kDesignText) {
    panel_.Frequency.setCaption("Non-Active ID");
  }
  if (const auto id = link::heldId(outside_.link.ReadReply())) {
    showFrequency(*id);
    showTalkgroupTag(*id);
  }
  state().CurrentMode = askModeReply();
  hearing_.tell();
}

void Bc895Poll::searchIds() {
  enterIdMode(false);
  ids().begin();
  ask(link::key::kSearch);
  showFrequency(kNoId);
  IdStay stay;
  while (ids().on() && state().CurrentMode == mode895::kIdSearch) {
    searchRound(stay);
  }
  ids().end();
}

void Bc895Poll::searchRound(IdStay& stay) {
  outside_.gate.yield();
  if (!ids().on()) {
    return;
  }
  const std::string answer = askForId(stay);
  mirrorTitle();
  showSearchedId(answer, stay);
  outside_.gate.yield();
  if (!ids().on()) {
    return;
  }
  ask(command::kStopIds);
  state().CurrentMode = link::modeOf(askModeReply());
  hearing_.tell();
}

/// A streamed line may come before the answer. It is recognised by its form, or by its first
/// letters if earlier answers began with others.
std::string Bc895Poll::askForId(IdStay& stay) {
  std::string answer = ask(command::kStreamIds);
  const bool streamed = answer.starts_with(reply::kStreamedId) && !stay.head.empty() &&
                        stay.head != reply::kStreamedId;
  if (streamed || !link::answersSearch(answer)) {
    if (std::string next = outside_.link.ReadReply(); !next.empty()) {
      answer = std::move(next);
    }
  }
  if (link::answersSearch(answer)) {
    stay.head = answer.substr(0, reply::kStreamedId.size());
  }
  return answer;
}

/// An answer that can't be read leaves the display as it is. Deliberate: while no ID is active,
/// `found` keeps its value. After a known ID the skip key is therefore sent again in each round.
void Bc895Poll::showSearchedId(const std::string& answer, IdStay& stay) {
  std::string shown(panel_.Frequency.caption());
  if (link::saysNoId(answer)) {
    panel_.Alpha.setCaption("");
    shown = kNoId;
  } else if (link::answersSearch(answer)) {
    const std::string id = link::searchedId(answer);
    showTalkgroupTag(id);
    stay.found = captureId(outside_.hits.List2, id, panel_.Alpha.caption(), outside_.clock);
    shown = id.find('-') == std::string::npos ? platform::format(id, "#####0") : id;
  }
  skipIf(stay.found);
  showFrequency(shown);
}

/// While the window is minimised, the task bar shows what the radio receives.
void Bc895Poll::mirrorTitle() {
  if (!outside_.window.minimised()) {
    outside_.window.setCaption(memory::mainTitle(outside_.planName()));
  } else if (!panel_.Alpha.caption().empty()) {
    outside_.window.setCaption(panel_.Alpha.caption());
  } else {
    outside_.window.setCaption(panel_.Frequency.caption());
  }
}

}  // namespace tarnvex::monitor
