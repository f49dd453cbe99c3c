#include <array>

#include "link/poll_hold.h"
#include "memory/plan_lookup.h"
#include "monitor/bc245_poll.h"
#include "monitor/hit_capture.h"
#include "platform/convert.h"
#include "trunking/talkgroup_id.h"

// The part of the BC245XLT's poll that deals with talkgroup IDs.
namespace tarnvex::monitor {

namespace command = link::command;
namespace reply = link::reply;

void Bc245Poll::trunked(bool scanning) {
  panel_.Search.setVisible(false);
  if (scanning) {
    const auto list = options_.Option8.value() ? command::kScanBanks : command::kTrunkScanBanks;
    panel_.showBanks(link::bankLetters(ask(list)));
  } else {
    panel_.showBanks(link::TrunkIdReply(ask(command::kActiveId)).bank());
  }
  panel_.Bank[Bc245Panel::kBankWord].setVisible(true);
  const link::TrunkIdReply id(link::withDashes(ask(command::kActiveId)));
  if (id.isNothing()) {
    showNothingActive();
  } else {
    showVoiceId(id);
  }
}

void Bc245Poll::showVoiceId(const link::TrunkIdReply& answer) {
  const std::string slot = askSlot(answer);
  const Reception reception = askReception();
  const std::string id = answer.id();
  const auto tag = askTalkgroupTag(id, reception.bank);
  // An answer without an ID leaves the display as it is. Without a line to the radio, the display
  // goes blank.
  if (link::readsAsId(id) || !port_.portOpen()) {
    panel_.Channel.setCaption(slot);
    showTag(tag);
    hearing_.talkgroup(id, reception.bank, reception.frequency, 0);
    const std::string shown = trunking::shownId(id);
    // Alternates: if the ID is on the display, the frequency comes next.
    const bool frequencysTurn = options_.Check5.value() && panel_.Frequency.caption() == shown;
    showFrequency(frequencysTurn ? reception.frequency.value_or(shown) : shown);
  }
  panel_.LO.setVisible(asksOn(command::kLockout, reply::kLockoutOn));
}

std::string Bc245Poll::askSlot(const link::TrunkIdReply& answer) {
  const std::string priority = link::priorityPlace(ask(command::priorityId(answer.bank())));
  const bool isPriority = !priority.empty() && priority == answer.place();
  return isPriority ? "P  " + answer.slot() : answer.slot();
}

Bc245Poll::Reception Bc245Poll::askReception() {
  const link::SignalReply signal(ask(command::kReception));
  Reception reception{signal.tableFrequency(), {}};
  if (const auto megahertz = signal.megahertz()) {
    if (const auto row = memory::findChannel(outside_.MSFlexGrid1, *megahertz)) {
      reception.bank = memory::bankOfChannel(*row);
    }
  }
  return reception;
}

/// Also looks for the form of an EDACS ID that the radio isn't showing, since the plan may hold
/// either.
std::optional<std::string> Bc245Poll::askTalkgroupTag(const std::string& id,
                                                      std::optional<int> bank) {
  if (state().EntryActive) {
    return std::nullopt;
  }
  const bool decimal = asksOn(link::kEdacsDecimal.read, link::kEdacsDecimal.on);
  const auto others = decimal ? trunking::dashedForms(id) : trunking::decimalForms(id);
  std::optional<std::string> tag;
  if (bank) {
    tag = memory::findTalkgroupTag(outside_.MSFlexGrid2, *bank,
                                   std::array{id, others.first, others.second});
  }
  return tag.value_or("");
}

void Bc245Poll::showTag(const std::optional<std::string>& tag) {
  if (tag) {
    panel_.Alpha.setCaption(*tag);
  }
}

/// Returns whether it has pressed the scan key. It does so once after the program's start, while
/// the display still shows all segments.
bool Bc245Poll::startsRadio(std::string_view code) {
  if (!holdsId(code)) {
    panel_.Alpha.setCaption("");
  }
  if (panel_.Frequency.caption() != Bc245Panel::kDesignText) {
    return false;
  }
  ask(link::key::kScan);
  return true;
}

void Bc245Poll::followIds() {
  panel_.hideBanks();
  panel_.Channel.setCaption("");
  panel_.Search.setVisible(false);
  ids().begin();
  showFrequency(kNoId);
  link::PollHold hold(timer_);
  IdStay stay;
  // The loop must not depend on the mode alone: without a line to the radio it would never change.
  while (ids().on() && followsIds(state().CurrentMode) && port_.portOpen()) {
    idRound(stay);
  }
  ids().end();
  if (!port_.portOpen()) {
    hold.giveUp();
  }
}

void Bc245Poll::idRound(IdStay& stay) {
  const Bc245Mode& mode = *findBc245Mode(state().CurrentMode);
  outside_.gate.yield();
  if (!ids().on()) {
    return;
  }
  const bool held = holdsId(mode.code);
  panel_.Dly.setVisible(asksOn(command::kDelay, reply::kDelayOn));
  panel_.Hold.setVisible(held);
  panel_.TrunkType.setCaption(std::string(mode.trunkType));
  outside_.gate.yield();
  if (!ids().on()) {
    return;
  }
  const link::IdLine line = takeLine();
  if (line.isId()) {
    takeId(line, held, stay);
  } else if (!held) {
    stay.shown = kNoId;
    panel_.Alpha.setCaption("");
  }
  showFrequency(stay.shown);
  askIdMode();
  showLight();
  hearing_.tell();
}

/// Reads a streamed line. It may come before the answer to "IDN", or after a stray line.
link::IdLine Bc245Poll::takeLine() {
  const link::IdLine answer(ask(command::kStreamIds));
  link::IdLine line(outside_.link.ReadReply());
  if (line.empty() || line.isWhole()) {
    return line;
  }
  return answer.isWhole() ? answer : link::IdLine(outside_.link.ReadReply());
}

/// Asks the same questions even if the line says that no ID is active. The bank is then the last
/// one that was found. An incomplete line changes nothing.
void Bc245Poll::takeId(const link::IdLine& line, bool held, IdStay& stay) {
  if (!line.isWhole()) {
    return;
  }
  if (!held) {
    stay.id = line.id();
  }
  if (!held && line.saysNoId()) {
    stay.shown = kNoId;
  } else {
    // If the radio was on hold from the start, there may be no ID yet.
    stay.shown = stay.id.empty() ? stay.shown : trunking::shownId(stay.id);
    showFrequency(stay.shown);
  }
  stay.id = std::string(platform::trimmed(stay.id));
  const Reception reception = askReception();
  platform::assign(stay.bank, reception.bank);
  showTag(askTalkgroupTag(stay.id, reception.bank));
  if (!line.saysNoId()) {
    hearing_.talkgroup(stay.id, reception.bank, reception.frequency, 0);
  }
  captureId(outside_.hits.List2, panel_.Frequency.caption(), stay.bank, panel_.Alpha.caption(),
            outside_.clock);
  // Deliberate: with `chkSkip` ticked, this radio skips every ID, known or not.
  skipIf(true);
}

/// Keeps the last mode if a stray line comes instead of one.
void Bc245Poll::askIdMode() {
  const std::string mode = link::modeOf(askModeReply());
  if (link::isMode(mode)) {
    state().CurrentMode = mode;
    panel_.mode.setCaption(mode);
  } else {
    state().CurrentMode = panel_.mode.caption();
  }
}

}  // namespace tarnvex::monitor
