#include "radio/radio.h"

#include <algorithm>
#include <cmath>

#include "radio/built_in_memory.h"
#include "radio/readings.h"
#include "radio/replies.h"
#include "radio/tuning.h"

namespace tarnvex::radio {

Radio::Radio(Model model, std::uint64_t seed)
    : state_(model), air_(seed), scene_(sceneNamed("quiet")) {}

std::string Radio::exchange(std::string_view line) {
  const bool streamed = streamsLines(state_);
  std::string reply = answer(state_, line);
  tune(state_, air_);
  if (streamed || streamsLines(state_)) {
    lineDue_ = clock_ + kStreamQuiet;
  }
  return reply;
}

void Radio::advance(Millis ms) {
  // In short steps, so that one long call has the same result as many short ones.
  constexpr Millis kStep = 10;
  for (Millis left = ms; left > 0; left -= kStep) {
    const Millis now = std::min(left, kStep);
    clock_ += now;
    const bool hasClock = !scene_->hours.empty();
    day_ += static_cast<double>(now) * tempo_;
    owed_ += static_cast<double>(now) * (hasClock ? 1 : tempo_);
    const auto whole = static_cast<Millis>(owed_);
    owed_ -= static_cast<double>(whole);
    live(whole);
    stream();
  }
}

void Radio::live(Millis ms) {
  state_.now += ms;
  runScene();
  air_.advance(state_.now, traffic());
  tune(state_, air_);
}

std::optional<int> Radio::hour() const {
  constexpr double kHour = 3600000;
  const auto now = static_cast<int>(std::fmod(kFirstHour + day_ / kHour, 24));
  return scene_->hours.empty() ? std::nullopt : std::optional(now);
}

double Radio::traffic() const {
  const auto now = hour();
  return now ? scene_->hours[*now] : 1;
}

void Radio::runScene() {
  if (scene_->length > 0 && state_.now - sceneStart_ >= scene_->length) {
    sceneStart_ += (state_.now - sceneStart_) / scene_->length * scene_->length;
    nextStep_ = 0;
    air_.play(scene_->sources, scene_->jitter, sceneStart_);
  }
  while (nextStep_ < scene_->steps.size() &&
         scene_->steps[nextStep_].at <= state_.now - sceneStart_) {
    takeStep(scene_->steps[nextStep_++]);
  }
}

// A search starts from the frequency that was shown.
void Radio::engage(Activity activity) {
  const Frequency here = displayedFrequency(state_);
  if (activity == Activity::IdHold) {
    holdId(state_);
  } else {
    enter(state_, activity);
  }
  if (searches(activity)) {
    state_.searchAt = here;
  }
}

void Radio::takeStep(const Step& step) {
  if (modeCode(state_.model, step.activity, Family::Motorola).empty()) {
    return;
  }
  if (followsIds(step.activity) || step.activity == Activity::TrunkSearch) {
    state_.trunkBank = step.argument;
  }
  engage(step.activity);
  if (step.activity == Activity::Manual) {
    state_.channel = step.argument;
  }
}

void Radio::stream() {
  if (streamsLines(state_) && clock_ >= lineDue_) {
    lines_.push_back(streamedLine(state_));
    lineDue_ = clock_ + kStreamPeriod;
  }
}

std::vector<std::string> Radio::unsolicited() {
  return std::exchange(lines_, {});
}

std::optional<Millis> Radio::nextLineIn() const {
  return streamsLines(state_) ? std::optional(std::max<Millis>(0, lineDue_ - clock_))
                              : std::nullopt;
}

bool Radio::playScene(std::string_view name) {
  const Scene* scene = sceneNamed(name);
  if (scene == nullptr) {
    return false;
  }
  scene_ = scene;
  sceneStart_ = state_.now;
  nextStep_ = 0;
  day_ = 0;
  state_.delay = scene->delay;
  air_.play(scene->sources, scene->jitter, state_.now);
  runScene();
  tune(state_, air_);
  return true;
}

bool Radio::setMode(std::string_view code) {
  const auto found = activityOf(state_.model, code);
  if (!found) {
    return false;
  }
  const auto [activity, family] = *found;
  if (familyOf(state_) != family) {
    state_.trunkBank = family == Family::Edacs ? 7 : 1;
  }
  engage(activity);
  tune(state_, air_);
  return true;
}

bool Radio::receive(int channel, Millis length) {
  if (channel < 1 || channel > kChannels || length <= 0) {
    return false;
  }
  const Channel& stored = state_.memory.channels[channel];
  if (stored.frequency == 0) {
    return false;
  }
  Transmission transmission;
  transmission.frequency = stored.frequency;
  transmission.tone = stored.tone;
  air_.transmit(std::move(transmission), length, state_.now);
  tune(state_, air_);
  return true;
}

bool Radio::talk(std::string_view id, Millis length) {
  Transmission transmission;
  transmission.id = normalId(id);
  transmission.bank = state_.trunkBank;
  const auto voices = voiceChannels(static_cast<char>('A' + state_.trunkBank));
  transmission.frequency =
      voices.empty() ? controlChannel(state_.memory, state_.trunkBank) : voices.front();
  if (transmission.id.empty() || transmission.frequency == 0 || length <= 0) {
    return false;
  }
  air_.transmit(std::move(transmission), length, state_.now);
  tune(state_, air_);
  return true;
}

void Radio::become(Model model) {
  tarnvex::radio::become(state_, model);
  lines_.clear();
}

}  // namespace tarnvex::radio
