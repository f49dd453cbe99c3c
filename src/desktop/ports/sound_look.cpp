#include "desktop/ports/sound_look.h"

#include <chrono>

namespace tarnvex::desktop {
namespace {

constexpr auto kLookPatience = std::chrono::seconds(2);
constexpr const char* kNoServer = "No sound server: nothing will be recorded.";

}  // namespace

SoundLook::SoundLook(Told told) : told_(std::move(told)), thread_([this] { run(); }) {}

SoundLook::~SoundLook() {
  leaving_ = true;
  pulse_.wake();
  thread_.join();
}

void SoundLook::run() {
  QMetaObject::invokeMethod(
      &here_, [this, missing = find()] { told_(missing); }, Qt::QueuedConnection);
}

std::string SoundLook::find() {
  if (!pulse_.works()) {
    return kNoServer;
  }
  pulse_.connect();
  if (!turnUntil([this] { return pulse_.failed() || pulse_.ready(); }) || pulse_.failed()) {
    return kNoServer;
  }
  return missingIn(count());
}

std::string SoundLook::missingIn(const Sources& sources) {
  if (sources.inputs > 0) {
    return "";
  }
  return sources.monitors > 0 ? "No sound input; only this computer's own output can be recorded."
                              : "No sound input: nothing will be recorded.";
}

SoundLook::Sources SoundLook::count() {
  Sources found;
  const auto add = [](pa_context*, const pa_source_info* source, int, void* sum) {
    auto& sources = *static_cast<Sources*>(sum);
    if (source != nullptr) {
      ++(source->monitor_of_sink == PA_INVALID_INDEX ? sources.inputs : sources.monitors);
    }
  };
  pa_operation* asked = pa_context_get_source_info_list(pulse_.get(), add, &found);
  turnUntil([&] { return pa_operation_get_state(asked) != PA_OPERATION_RUNNING; });
  pa_operation_cancel(asked);
  pa_operation_unref(asked);
  return found;
}

bool SoundLook::turnUntil(const std::function<bool()>& done) {
  const auto end = std::chrono::steady_clock::now() + kLookPatience;
  while (!done()) {
    if (leaving_ || std::chrono::steady_clock::now() > end) {
      return false;
    }
    pulse_.turn();
  }
  return true;
}

}  // namespace tarnvex::desktop
