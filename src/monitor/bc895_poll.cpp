#include "monitor/bc895_poll.h"

#include <algorithm>
#include <array>

#include "link/identity.h"
#include "link/tone_table.h"
#include "memory/plan_lookup.h"

namespace tarnvex::monitor {

namespace command = link::command;
namespace reply = link::reply;
namespace mode895 = link::mode895;

namespace {

/// What a search mode does to the panel, apart from what all of them do.
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

/// The bars that are lit up to a level. For a level below the lowest or above the last, the bars
/// stay as they were. The meter has four working bars: the fifth is only ever cleared.
struct BarStep {
  int upTo;
  int lit;
};
constexpr int kLowestLevel = 13;
constexpr std::array<BarStep, 5> kBarSteps = {{{15, 0}, {17, 1}, {20, 2}, {23, 3}, {26, 4}}};

}  // namespace

Bc895Poll::Bc895Poll(PanelState& panel, PollOutside outside)
    : PollCycle(panel, std::move(outside)),
      panel_(panel),
      knob_(panel, outside_.link, outside_.gate, outside_.state) {}

void Bc895Poll::tick() {
  if (otherModelAnswers()) {
    handOver("BC245");
    return;
  }
  mirrorMute(ask(command::kMute));
  const link::SignalReply signal(ask(command::kSignal));
  gateRecording(showsReception());
  showSignalBars(signal);
  askMode();
  panel_.LO.setVisible(asksOn(command::kLockout, reply::kLockoutOn));
  askLimits();
  branch(state().CurrentMode, signal);
  hearing_.tell();
  knob_.step();
}

/// Silence doesn't count as another model: the link has reported it, and the window stays.
bool Bc895Poll::otherModelAnswers() {
  if (askIdentity().namesModel()) {
    return true;
  }
  link::adoptBc895(state());
  state().SwitchingScanners = false;
  return false;
}

/// A change of the box sends the switch to the radio, so a stray or garbled line must not change
/// it.
void Bc895Poll::mirrorMute(const std::string& answer) {
  if (answer == reply::kMuteOn || answer == command::kMuteOff || answer == reply::kError) {
    outside_.Check6.setValue(answer == reply::kMuteOn);
  }
}

/// Judges by what the last tick left on the display. A running search counts as a reception, too.
bool Bc895Poll::showsReception() const {
  const std::string& shown = panel_.Frequency.caption();
  return shown != kScanning && shown != kDesignText &&
         panel_.mode.caption() != mode895::kTrunkSearchQuiet;
}

bool Bc895Poll::takeBars(const link::SignalReply& signal) {
  const auto level = signal.level();
  if (!level || *level < kLowestLevel || *level > kBarSteps.back().upTo) {
    return false;
  }
  bars_ = std::ranges::find_if(kBarSteps, [&](auto s) { return *level <= s.upTo; })->lit;
  return true;
}

void Bc895Poll::showSignalBars(const link::SignalReply& signal) {
  const bool shown = takeBars(signal);
  for (std::size_t bar = 0; shown && bar < panel_.Sig.size(); ++bar) {
    panel_.Sig[bar].setVisible(std::cmp_less(bar, bars_));
  }
}

void Bc895Poll::branch(const std::string& mode, const link::SignalReply& signal) {
  if (mode == mode895::kIdHold || mode == mode895::kIdSearch) {
    mode == mode895::kIdHold ? holdId() : searchIds();
    knob_.forgetPresses();
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
  if (!state().EntryActive) {
    skipIf(searchFinds(signal));
  } else if (std::ranges::find(kSearchModes, mode, &SearchMode::mode)->clearAlpha) {
    panel_.Alpha.setCaption("");
  }
}

void Bc895Poll::prepareSearch(const std::string& mode) {
  const auto& effects = *std::ranges::find(kSearchModes, mode, &SearchMode::mode);
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

/// Shows the frequency of the search, and takes a hit if the squelch is open. Returns whether the
/// frequency was known already: from the plan while the squelch is closed, from the hit list once
/// it is open.
bool Bc895Poll::searchFinds(const link::SignalReply& signal) {
  const auto lastTag = memory::findTag(outside_.MSFlexGrid1, panel_.Frequency.caption());
  // Ask everything before writing anything, so that the tag doesn't flicker.
  const bool open = asksOn(command::kSquelch, reply::kSquelchOpen) &&
                    state().CurrentMode != mode895::kTrunkSearchQuiet;
  if (open) {
    const link::SignalReply reception(ask(command::kSignal));
    takeBars(reception);
    hearing_.frequency(reception, bars_);
    const auto heard = reception.shownFrequency();
    if (link::readsAsFrequency(heard)) {
      return takeHit(heard, lastTag.value_or(""));
    }
  } else {
    state().HitCounted = false;
  }
  panel_.Alpha.setCaption(lastTag.value_or(""));
  if (link::readsAsFrequency(signal.shownFrequency())) {
    panel_.Frequency.setCaption(signal.shownFrequency());
  }
  return !open && lastTag;
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
    showNoChannel(mode);
  } else if (showActiveChannel(channel, !scanning)) {
    showChannel(channel, mode);
  }
}

void Bc895Poll::showNoChannel(const std::string& mode) {
  showNothingActive();
  for (auto* label : {&panel_.Delay, &panel_.MHZ, &panel_.Trunk}) {
    label->setVisible(false);
  }
  panel_.CTCSS.setVisible(entersTone(mode));
}

void Bc895Poll::showChannel(const link::ChannelReply& channel, const std::string& mode) {
  panel_.MHZ.setVisible(true);
  panel_.Delay.setVisible(channel.delay());
  if (entersTone(mode)) {
    panel_.CTCSS.setVisible(true);
  } else {
    showTone(channel);
  }
  // In manual mode the radio always names its channel. The meter shows whether it is heard.
  if (mode == mode895::kScan || bars_ > 0) {
    hearing_.channel(channel, panel_.CtcssStat.visible(), bars_);
  }
}

/// Whether the user is keying a tone, whose digits stay visible until it is entered.
bool Bc895Poll::entersTone(const std::string& mode) {
  return state().EntryActive && mode == mode895::kToneEntry;
}

/// Deliberate: if the tone squelch is off, the last tone stays visible until no channel is active.
void Bc895Poll::showTone(const link::ChannelReply& channel) {
  const std::string* tone = link::toneText(channel.tone());
  if (panel_.CtcssStat.visible() && tone != nullptr) {
    panel_.CTCSS.setCaption(*tone);
    panel_.CTCSS.setVisible(true);
  }
}

}  // namespace tarnvex::monitor
