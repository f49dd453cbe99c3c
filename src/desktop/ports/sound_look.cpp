#include "desktop/ports/sound_look.h"

#include <chrono>

namespace tarnvex::desktop {
namespace {

constexpr auto kLookPatience = std::chrono::seconds(2);

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
    return "No sound server";
  }
  pulse_.connect();
  if (!turnUntil([this] { return pulse_.failed() || pulse_.ready(); }) || pulse_.failed()) {
    return "No sound server";
  }
  return count() > 0 ? "" : "No sound input";
}

int SoundLook::count() {
  int found = 0;
  const auto add = [](pa_context*, const pa_source_info* source, int, void* sum) {
    *static_cast<int*>(sum) += source != nullptr ? 1 : 0;
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
