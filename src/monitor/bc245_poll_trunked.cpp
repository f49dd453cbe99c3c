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

namespace {

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? ""
                                    : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

void Bc245Poll::trunked(bool scanning) {
  panel_.Search.setVisible(false);
  if (scanning) {
    const auto list = own_.Option8.value() ? command::kScanBanks : command::kTrunkScanBanks;
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

void Bc245Poll::showVoiceId(const link::TrunkIdReply& id) {
  showSlot(id);
  const Reception reception = askReception();
  showTalkgroupTag(id.id(), reception.bank);
  const std::string shown = trunking::shownId(id.id());
  // What stands on the display tells whose turn it is.
  const bool frequencysTurn = own_.Check5.value() && panel_.Frequency.caption() == shown;
  showFrequency(frequencysTurn ? reception.frequency.value_or(shown) : shown);
  panel_.LO.setVisible(asksOn(command::kLockout, reply::kLockoutOn));
}

void Bc245Poll::showSlot(const link::TrunkIdReply& id) {
  const std::string priority = link::priorityPlace(ask(command::priorityId(id.bank())));
  const bool isPriority = !priority.empty() && priority == id.place();
  panel_.Channel.setCaption(isPriority ? "P  " + id.slot() : id.slot());
}

Bc245Poll::Reception Bc245Poll::askReception() {
  const link::SignalReply signal(ask(command::kReception));
  Reception reception{signal.tableFrequency(), {}};
  if (const auto megahertz = signal.megahertz()) {
    if (const auto row = memory::findChannel(controls_.MSFlexGrid1, *megahertz)) {
      reception.bank = memory::bankOfChannel(*row);
    }
  }
  return reception;
}

/// The plan may hold an EDACS ID in the form that the radio doesn't show.
void Bc245Poll::showTalkgroupTag(const std::string& id, std::optional<int> bank) {
  if (state().EntryActive) {
    return;
  }
  const bool decimal = asksOn(link::kEdacsDecimal.read, link::kEdacsDecimal.on);
  const auto others = decimal ? trunking::dashedForms(id) : trunking::decimalForms(id);
  std::optional<std::string> tag;
  if (bank) {
    tag = memory::findTalkgroupTag(controls_.MSFlexGrid2, *bank,
                                   std::array{id, others.first, others.second});
  }
  panel_.Alpha.setCaption(tag.value_or(""));
}

/// All segments still standing on the display mean that the radio hasn't scanned since the program
/// opened: it is set going first.
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
  ask(command::kStreamIds);
  showFrequency(kNoId);
  link::PollHold hold(own_.Scantimer);
  IdStay stay;
  // A lost line answers nothing, so the mode would never change.
  while (followsIds(state().CurrentMode) && own_.MSComm1.portOpen()) {
    idRound(stay);
  }
  ask(command::kStopIds);
  if (!own_.MSComm1.portOpen()) {
    hold.giveUp();
  }
}

void Bc245Poll::idRound(IdStay& stay) {
  const Bc245Mode& mode = *findBc245Mode(state().CurrentMode);
  outside_.gate.yield();
  const bool held = holdsId(mode.code);
  panel_.Dly.setVisible(asksOn(command::kDelay, reply::kDelayOn));
  panel_.Hold.setVisible(held);
  panel_.TrunkType.setCaption(std::string(mode.trunkType));
  outside_.gate.yield();
  ask(command::kStreamIds);
  const link::IdLine line(outside_.link.ReadReply());
  if (line.isId()) {
    takeId(line, held, stay);
  } else if (!held) {
    stay.shown = kNoId;
    panel_.Alpha.setCaption("");
  }
  showFrequency(stay.shown);
  askIdMode();
  showLight();
}

/// A line that says that no ID is active goes the whole way, too: it is listed as what the display
/// shows, and its bank stays the last one that was found.
void Bc245Poll::takeId(const link::IdLine& line, bool held, IdStay& stay) {
  if (!held) {
    stay.id = line.id();
  }
  if (!held && line.saysNoId()) {
    stay.shown = kNoId;
  } else {
    stay.shown = trunking::shownId(stay.id);
    showFrequency(stay.shown);
  }
  stay.id = trimmed(stay.id);
  const Reception reception = askReception();
  platform::assign(stay.bank, reception.bank);
  showTalkgroupTag(stay.id, reception.bank);
  captureId(controls_.List2, panel_.Frequency.caption(), stay.bank, panel_.Alpha.caption(),
            outside_.clock);
  // Known or not: on this radio the search always passes on from an ID once it is taken.
  skipIf(true);
}

/// A stray line is not taken for a mode.
void Bc245Poll::askIdMode() {
  const std::string mode = link::modeOf(ask(command::kMode));
  if (mode.starts_with(command::kMode)) {
    state().CurrentMode = mode;
    panel_.mode.setCaption(mode);
  } else {
    state().CurrentMode = panel_.mode.caption();
  }
}

}  // namespace tarnvex::monitor
