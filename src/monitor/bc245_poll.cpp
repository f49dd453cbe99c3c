#include "monitor/bc245_poll.h"

#include "link/identity.h"
#include "trunking/system_type.h"

namespace tarnvex::monitor {

namespace command = link::command;
namespace reply = link::reply;
namespace mode245 = link::mode245;

namespace {

constexpr std::string_view kSearching = "Searching";

bool searchesService(std::string_view code) {
  return code == mode245::kService || code == mode245::kServiceHold;
}

}  // namespace

Bc245Poll::Bc245Poll(Bc245Panel& panel, PollOutside outside, const ReceiverOptions& options,
                     platform::Timer& Scantimer, const platform::SerialPort& MSComm1)
    : PollCycle(panel, std::move(outside)),
      panel_(panel),
      options_(options),
      timer_(Scantimer),
      port_(MSComm1) {}

void Bc245Poll::tick() {
  if (!searchesService(panel_.mode.caption())) {
    panel_.Police.setVisible(false);
  }
  const link::IdentityReply identity = askIdentity();
  if (identity.isError()) {
    handOver("BC895");
    return;
  }
  takeIdentity(identity);
  gateRecording(showsReception());
  askLimits();
  askIndicators();
  workAutoLight();
  showLight();
  askMode();
  if (const Bc245Mode* mode = findBc245Mode(state().CurrentMode)) {
    panel_.TrunkType.setCaption(std::string(mode->trunkType));
    branch(*mode);
  }
  hearing_.tell();
}

/// After silence the texts are blank, since there is no radio to name. A stray line leaves them as
/// they were.
void Bc245Poll::takeIdentity(const link::IdentityReply& identity) {
  state().SwitchingScanners = false;
  if (identity.isKnown()) {
    link::adoptPolledBc245(state(), identity);
  }
}

/// Judges by what the last tick left on the display.
bool Bc245Poll::showsReception() const {
  const std::string& shown = panel_.Frequency.caption();
  return shown != kScanning && shown != Bc245Panel::kDesignText &&
         panel_.mode.caption() != mode245::kTrunkSearch;
}

void Bc245Poll::askIndicators() {
  panel_.LO.setVisible(asksOn(command::kLockout, reply::kLockoutOn));
  panel_.Pri.setVisible(asksOn(command::kPriority, reply::kPriorityOn));
  panel_.Dly.setVisible(asksOn(command::kDelay, reply::kDelayOn));
}

void Bc245Poll::workAutoLight() {
  if (!options_.Check2.value()) {
    return;
  }
  const std::string& shown = panel_.Frequency.caption();
  const bool active = shown != kSearching && shown != kScanning && shown != kNoId;
  ask(link::kLight.form(active));
  panel_.light(active);
}

void Bc245Poll::showLight() {
  panel_.light(asksOn(link::kLight.read, link::kLight.on));
}

void Bc245Poll::branch(const Bc245Mode& mode) {
  if (mode.branch == Bc245Branch::IdSearch && startsRadio(mode.code)) {
    return;
  }
  showIndicators(mode);
  switch (mode.branch) {
    case Bc245Branch::Nothing:
      return;
    case Bc245Branch::Conventional:
      return conventional(mode.code == mode245::kScan);
    case Bc245Branch::Search:
      return search(mode.code);
    case Bc245Branch::Program:
      return program();
    case Bc245Branch::SelectBank:
      return selectBank();
    case Bc245Branch::IdSearch:
      return followIds();
    case Bc245Branch::Trunked:
      return trunked(mode.scan == true);
  }
}

void Bc245Poll::showIndicators(const Bc245Mode& mode) {
  for (auto [shown, label] :
       {std::pair{mode.scan, &panel_.Scan}, std::pair{mode.hold, &panel_.Hold},
        std::pair{mode.trunk, &panel_.Trunk}, std::pair{mode.police, &panel_.Police}}) {
    if (shown) {
      label->setVisible(*shown);
    }
  }
}

void Bc245Poll::conventional(bool scanning) {
  panel_.Bank[Bc245Panel::kBankWord].setVisible(true);
  panel_.Search.setVisible(false);
  if (scanning) {
    panel_.showBanks(link::bankLetters(ask(command::kScanBanks)));
  }
  // Deliberate: asked again in this mode, although the start of the tick has asked already. The
  // answer isn't used.
  ask(command::kPriority);
  const link::ChannelReply channel(ask(command::kActiveChannel));
  if (channel.isNothing()) {
    showNothingActive();
    panel_.Trunk.setVisible(false);
    return;
  }
  if (showActiveChannel(channel, !scanning)) {
    hearing_.channel(channel, false, 0);
  }
}

void Bc245Poll::search(std::string_view code) {
  panel_.Channel.setCaption("");
  panel_.Search.setVisible(!searchesService(code));
  if (state().EntryActive) {
    panel_.Alpha.setCaption("");
    return;
  }
  const bool open = asksOn(command::kSquelch, reply::kSquelchOpen);
  // On hold the radio stays on its frequency, whether there is a reception or not.
  if (!open && code != mode245::kSearchHold && code != mode245::kServiceHold) {
    panel_.Alpha.setCaption("");
    panel_.Frequency.setCaption(std::string(kSearching));
    state().HitCounted = false;
    return;
  }
  showSearched(open);
}

void Bc245Poll::showSearched(bool open) {
  const link::SignalReply reception(ask(command::kReception));
  if (open) {
    hearing_.frequency(reception, 0);
  }
  const std::string frequency = reception.shownFrequency();
  if (link::readsAsFrequency(frequency)) {
    skipIf(takeHit(frequency, ""));
  } else {
    panel_.Alpha.setCaption("");
  }
}

/// Deliberate: hides the channel label for good. It is visible again only after the program has
/// been restarted.
void Bc245Poll::program() {
  panel_.Channel.setVisible(false);
  if (!state().EntryActive) {
    if (const auto frequency = link::SignalReply(ask(command::kReception)).tableFrequency()) {
      panel_.Frequency.setCaption(*frequency);
    }
  }
  panel_.Alpha.setCaption("Program Frequencies");
}

void Bc245Poll::selectBank() {
  if (state().DigitKeyed) {
    const link::TrunkTypeReply type(ask(command::kTrunkType));
    panel_.Frequency.setCaption(trunking::systemTypeDisplay(type.word()));
    panel_.Alpha.setCaption("Select System Type");
    return;
  }
  panel_.Alpha.setCaption("Select Bank");
  panel_.Frequency.setCaption("");
  panel_.Channel.setCaption("");
}

}  // namespace tarnvex::monitor
