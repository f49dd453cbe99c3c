#include "monitor/bc895_poll.h"

#include <algorithm>
#include <array>

#include "link/tone_table.h"
#include "memory/plan_lookup.h"
#include "monitor/hit_capture.h"
#include "platform/convert.h"
#include "trunking/talkgroup_id.h"

namespace tarnvex::monitor {

namespace command = link::command;
namespace reply = link::reply;
namespace mode895 = link::mode895;

namespace {

constexpr std::string_view kDesignText = "Initializing";

/// What a search mode does to the panel before the part that all of them share.
struct SearchMode {
  std::string_view mode;
  bool clearAlpha;
  bool showWx;
  bool showTrunk;
  bool showAuto;
};
constexpr std::array<SearchMode, 7> kSearchModes = {{
    {mode895::kSearch, false, false, false, false},
    {mode895::kSearchHold, true, false, false, false},
    {mode895::kWeather, true, true, false, false},
    {mode895::kWeatherHold, true, true, false, false},
    {mode895::kTrunkSearch, true, false, true, false},
    {mode895::kTrunkSearchQuiet, true, false, true, false},
    {mode895::kAuto, true, false, false, true},
}};

/// Bars lit from a level on; below the first and above the last limit the bars stay as they were.
/// The meter has four working bars: the fifth is only ever cleared.
struct BarStep {
  int upTo;
  std::size_t lit;
};
constexpr int kLowestLevel = 13;
constexpr std::array<BarStep, 5> kBarSteps = {{{15, 0}, {17, 1}, {20, 2}, {23, 3}, {26, 4}}};

}  // namespace

Bc895Poll::Bc895Poll(PanelState& panel, PollControls controls, PollOutside outside)
    : PollCycle(panel, controls, std::move(outside)),
      panel_(panel),
      knob_(panel, outside_.link, outside_.gate, outside_.state) {}

void Bc895Poll::tick() {
  if (otherModelAnswers()) {
    handOver("BC245", "BC245XLT");
    return;
  }
  controls_.Check6.setValue(asksOn(command::kMute, reply::kMuteOn));
  const link::SignalReply signal(ask(command::kSignal));
  gateRecording(showsReception());
  showSignalBars(signal);
  askMode();
  panel_.LO.setVisible(asksOn(command::kLockout, reply::kLockoutOn));
  askLimits();
  branch(state().CurrentMode, signal);
  knob_.step();
}

/// Silence counts as the radio that was there: the link has reported it, and it is no reason to
/// change windows.
bool Bc895Poll::otherModelAnswers() {
  if (link::IdentityReply(ask(command::kIdentify)).isOtherModel()) {
    return true;
  }
  state().ModelKey = "BC895";
  state().ScannerName = "BC895XLT";
  state().SerialNumberText = "N/A";
  state().FirmwareText = "N/A";
  state().SwitchingScanners = false;
  return false;
}

/// By the words of the last tick: a running search counts, too.
bool Bc895Poll::showsReception() const {
  const std::string& shown = panel_.Frequency.caption();
  return shown != kScanning && shown != kDesignText &&
         panel_.mode.caption() != mode895::kTrunkSearchQuiet;
}

void Bc895Poll::showSignalBars(const link::SignalReply& signal) {
  const auto level = signal.level();
  if (!level || *level < kLowestLevel) {
    return;
  }
  const auto* step = std::ranges::find_if(kBarSteps, [&](auto s) { return *level <= s.upTo; });
  if (step == kBarSteps.end()) {
    return;
  }
  for (std::size_t bar = 0; bar < panel_.Sig.size(); ++bar) {
    panel_.Sig[bar].setVisible(bar < step->lit);
  }
}

void Bc895Poll::branch(const std::string& mode, const link::SignalReply& signal) {
  if (mode == mode895::kIdHold) {
    holdId();
  } else if (mode == mode895::kIdSearch) {
    searchIds();
  } else if (mode == mode895::kTrunkScan || mode == mode895::kTrunkManual) {
    trunkedVoice(mode);
  } else if (mode == mode895::kScan || mode == mode895::kManual || mode == mode895::kToneEntry) {
    conventional(mode);
  } else if (mode == mode895::kSend) {
    sendMode();
  } else if (std::ranges::find(kSearchModes, mode, &SearchMode::mode) != kSearchModes.end()) {
    search(mode, signal);
  }
}

void Bc895Poll::sendMode() {
  for (auto& letter : panel_.Bankltr) {
    letter.setVisible(true);
  }
  panel_.Alpha.setCaption("");
  showFrequency("Send");
}

void Bc895Poll::search(const std::string& mode, const link::SignalReply& signal) {
  prepareSearch(mode);
  skipIf(!state().EntryActive && searchFinds(signal));
}

void Bc895Poll::prepareSearch(const std::string& mode) {
  const auto& effects = *std::ranges::find(kSearchModes, mode, &SearchMode::mode);
  if (effects.clearAlpha) {
    panel_.Alpha.setCaption("");
  }
  if (mode == mode895::kSearch) {
    panel_.Hold.setVisible(false);
    panel_.Trunk.setVisible(false);
  } else if (mode == mode895::kSearchHold || mode == mode895::kWeatherHold) {
    panel_.Hold.setVisible(true);
  }
  for (auto [show, label] :
       {std::pair{effects.showWx, &panel_.Wx}, std::pair{effects.showTrunk, &panel_.Trunk},
        std::pair{effects.showAuto, &panel_.Auto}}) {
    if (show) {
      label->setVisible(true);
    }
  }
  panel_.Scan.setVisible(false);
  panel_.Channel.setCaption("");
  panel_.CTCSS.setVisible(false);
  panel_.CtcssStat.setVisible(false);
  panel_.Search.setVisible(mode != mode895::kWeather && mode != mode895::kWeatherHold);
}

/// Shows what the search is on and takes the hit if the squelch is open. Returns whether it is
/// known already: in the plan while the squelch is closed, in the hit list once it is open.
bool Bc895Poll::searchFinds(const link::SignalReply& signal) {
  const bool inPlan = showTagOf(panel_.Frequency.caption());
  if (!inPlan) {
    panel_.Alpha.setCaption("");
  }
  panel_.Frequency.setCaption(signal.shownFrequency());
  const bool open = asksOn(command::kSquelch, reply::kSquelchOpen);
  if (!open || state().CurrentMode == mode895::kTrunkSearchQuiet) {
    state().HitCounted = false;
    return inPlan;
  }
  return takeHit(link::SignalReply(ask(command::kSignal)).shownFrequency());
}

void Bc895Poll::conventional(const std::string& mode) {
  panel_.Bank.setVisible(true);
  panel_.Wx.setVisible(false);
  panel_.Search.setVisible(false);
  panel_.CtcssStat.setVisible(asksOn(command::kToneSquelch, reply::kToneSquelchOn));
  const bool scanning = mode == mode895::kScan;
  panel_.Scan.setVisible(scanning);
  if (scanning) {
    panel_.Hold.setVisible(false);
    panel_.showBanks(link::bankLetters(ask(command::kScanBanks)));
  }
  panel_.Priority.setVisible(asksOn(command::kPriority, reply::kPriorityOn));
  const link::ChannelReply channel(ask(command::kActiveChannel));
  if (channel.isNothing()) {
    showNothingActive();
    for (auto* label : {&panel_.Delay, &panel_.MHZ, &panel_.CTCSS, &panel_.Trunk}) {
      label->setVisible(false);
    }
    return;
  }
  showActiveChannel(channel, !scanning);
  panel_.MHZ.setVisible(true);
  panel_.Delay.setVisible(channel.delay());
  showTone(channel);
}

/// Without tone squelch the last tone keeps standing until the channel is left: users read it
/// there.
void Bc895Poll::showTone(const link::ChannelReply& channel) {
  const auto index = channel.tone();
  const auto& tones = link::ToneTable();
  if (!panel_.CtcssStat.visible() || !index || *index < 0 ||
      static_cast<std::size_t>(*index) >= tones.size()) {
    return;
  }
  panel_.CTCSS.setCaption(std::string(tones[static_cast<std::size_t>(*index)]));
  panel_.CTCSS.setVisible(true);
}

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

void Bc895Poll::showVoiceId(const link::TrunkIdReply& id) {
  panel_.Channel.setCaption(id.slot());
  const std::string raw = id.id();
  const std::string shown = trunking::shownId(raw);
  bool onTable = false;
  showTalkgroupTag(raw, onTable);
  if (onTable) {
    showFrequency(shown);
  } else {
    // Not held back by an entry: an ID from outside the plan shows through it.
    panel_.Frequency.setCaption(shown);
  }
  panel_.LO.setVisible(asksOn(command::kLockout, reply::kLockoutOn));
}

void Bc895Poll::showTalkgroupTag(const std::string& id, bool& onTable) {
  const auto frequency = link::SignalReply(ask(command::kSignal)).tableFrequency();
  const auto channel =
      frequency ? memory::findChannel(controls_.MSFlexGrid1, *frequency) : std::optional<int>();
  onTable = channel.has_value();
  if (!channel) {
    panel_.Alpha.setCaption("");
  } else if (!state().EntryActive) {
    panel_.Alpha.setCaption(
        memory::findTalkgroupTag(controls_.MSFlexGrid2, memory::bankOfChannel(*channel), id)
            .value_or(""));
  }
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
  ask(command::kStreamIds);
  while (state().CurrentMode == mode895::kIdHold) {
    holdRound();
  }
  ask(command::kStopIds);
}

/// Takes one line a round; the flush before "MD" throws away what else has come, and nothing tries
/// to catch up.
void Bc895Poll::holdRound() {
  outside_.gate.yield();
  if (panel_.Frequency.caption() == kDesignText) {
    panel_.Frequency.setCaption("Non-Active ID");
  }
  if (const auto id = link::heldId(outside_.link.ReadReply())) {
    showFrequency(*id);
    bool onTable = false;
    showTalkgroupTag(*id, onTable);
  }
  state().CurrentMode = ask(command::kMode);
}

void Bc895Poll::searchIds() {
  enterIdMode(false);
  ask(command::kStreamIds);
  ask(link::key::kSearch);
  showFrequency(kNoId);
  // Keeps its value while no ID is active: the skip key then goes out again.
  bool found = false;
  while (state().CurrentMode == mode895::kIdSearch) {
    searchRound(found);
  }
  ask(command::kStopIds);
}

void Bc895Poll::searchRound(bool& found) {
  outside_.gate.yield();
  const std::string answer = ask(command::kStreamIds);
  mirrorTitle();
  std::string shown(kNoId);
  if (link::saysNoId(answer)) {
    panel_.Alpha.setCaption("");
  } else {
    shown = takeSearchedId(link::searchedId(answer), found);
  }
  skipIf(found);
  showFrequency(shown);
  outside_.gate.yield();
  ask(command::kStopIds);
  state().CurrentMode = link::modeOf(ask(command::kMode));
}

std::string Bc895Poll::takeSearchedId(const std::string& id, bool& found) {
  bool onTable = false;
  showTalkgroupTag(id, onTable);
  found = captureId(controls_.List2, id, panel_.Alpha.caption(), outside_.clock);
  return id.find('-') == std::string::npos ? platform::format(id, "#####0") : id;
}

/// So that the task bar shows what the radio is on.
void Bc895Poll::mirrorTitle() {
  if (!controls_.window.minimised()) {
    controls_.window.setCaption(mainTitle(outside_.planName()));
  } else if (!panel_.Alpha.caption().empty()) {
    controls_.window.setCaption(panel_.Alpha.caption());
  } else {
    controls_.window.setCaption(panel_.Frequency.caption());
  }
}

}  // namespace tarnvex::monitor
