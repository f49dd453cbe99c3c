#include "monitor/poll_cycle.h"

#include "link/identity.h"
#include "memory/plan_lookup.h"
#include "monitor/hit_capture.h"

namespace tarnvex::monitor {

namespace command = link::command;

namespace {

char bankLetterOf(int channel) {
  return link::bankLetter(memory::bankOfChannel(channel));
}

}  // namespace

PollCycle::PollCycle(PanelBase& front, PollOutside outside)
    : outside_(std::move(outside)),
      hearing_(outside_.receptions, outside_.state, front, outside_.MSFlexGrid1),
      front_(front) {}

void PollCycle::handOver(const std::string& modelKey) {
  link::adoptOtherModel(state(), modelKey);
  outside_.switchScanner();
}

void PollCycle::gateRecording(bool active) {
  outside_.recording.gate(active, front_.Alpha.caption(), front_.Frequency.caption());
}

link::IdentityReply PollCycle::askIdentity() {
  link::IdentityReply identity(ask(command::kIdentify));
  if (!identity.isKnown() || (named_ && identity.isError())) {
    outside_.link.resynchronise();
    identity = link::IdentityReply(ask(command::kIdentify));
  }
  named_ = named_ || identity.namesModel();
  return identity;
}

std::string PollCycle::askModeReply() {
  std::string reply = ask(command::kMode);
  if (!link::isMode(reply)) {
    outside_.link.resynchronise();
  }
  return reply;
}

void PollCycle::askMode() {
  state().CurrentMode = askModeReply();
  front_.mode.setCaption(state().CurrentMode);
}

void PollCycle::askLimits() {
  askLimit(outside_.search.LLimit, command::kLowerLimit);
  askLimit(outside_.search.Ulimit, command::kUpperLimit);
}

void PollCycle::askLimit(search::LimitBox& box, std::string_view command) {
  if (box.editing()) {
    return;
  }
  const auto limit = link::searchLimit(ask(command));
  // The user may have pasted something while the radio answered.
  if (limit && !box.editing()) {
    box.setText(*limit);
  }
}

void PollCycle::showFrequency(std::string_view text) {
  if (!state().EntryActive) {
    front_.Frequency.setCaption(std::string(text));
  }
}

void PollCycle::showNothingActive() {
  front_.Channel.setCaption("");
  front_.Alpha.setCaption("");
  showFrequency(kScanning);
  front_.LO.setVisible(false);
}

bool PollCycle::showActiveChannel(const link::ChannelReply& channel, bool markBank) {
  const auto number = channel.number();
  const std::string frequency = channel.shownFrequency();
  const bool hasFrequency = link::readsAsFrequency(frequency);
  if (!number && !hasFrequency) {
    return false;
  }
  // Ask everything before writing anything, so that the panel changes in one step.
  const std::string shownNumber = number ? askShownNumber(*number) : front_.Channel.caption();
  if (hasFrequency) {
    showChannelTag(frequency, number);
    showFrequency(frequency);
  }
  front_.Channel.setCaption(shownNumber);
  if (number && markBank) {
    front_.showBanks(std::string(1, bankLetterOf(*number)));
  }
  front_.LO.setVisible(channel.lockout());
  front_.Trunk.setVisible(channel.trunked());
  return true;
}

/// While digits are being keyed, the tag is cleared: it belongs to the channel that the user is
/// leaving.
void PollCycle::showChannelTag(const std::string& frequency, std::optional<int> channel) {
  if (!channel && frequency == front_.Frequency.caption()) {
    return;
  }
  const auto tag = channel
                       ? memory::findTag(outside_.MSFlexGrid1, frequency, std::to_string(*channel))
                       : std::nullopt;
  front_.Alpha.setCaption(state().EntryActive ? "" : tag.value_or(""));
}

std::string PollCycle::askShownNumber(int channel) {
  const auto question = command::priorityChannel(bankLetterOf(channel));
  const std::string number = std::to_string(channel);
  return link::priorityChannelOf(ask(question)) == channel ? "P  " + number : number;
}

bool PollCycle::takeHit(const std::string& frequency, const std::string& otherwise) {
  front_.Frequency.setCaption(frequency);
  front_.Alpha.setCaption(memory::findTag(outside_.MSFlexGrid1, frequency).value_or(otherwise));
  return captureFrequency(outside_.hits.List1, frequency, front_.Alpha.caption(), outside_.clock,
                          state());
}

}  // namespace tarnvex::monitor
