#include "desktop/ports/pulse_context.h"

namespace tarnvex::desktop {
namespace {

constexpr const char* kId = "io.github.tarnvex.Tarnvex";
/// The longest sleep while there is nothing to do, in microseconds.
constexpr int kSleep = 20'000;

}  // namespace

PulseContext::PulseContext() : loop_(pa_mainloop_new()) {}

PulseContext::~PulseContext() {
  if (context_ != nullptr) {
    pa_context_disconnect(context_);
    pa_context_unref(context_);
  }
}

void PulseContext::connect() {
  // The desktop's sound settings show the program with these.
  pa_proplist* properties = pa_proplist_new();
  pa_proplist_sets(properties, PA_PROP_APPLICATION_ID, kId);
  pa_proplist_sets(properties, PA_PROP_APPLICATION_ICON_NAME, kId);
  context_ = pa_context_new_with_proplist(pa_mainloop_get_api(loop_.get()), "Tarnvex", properties);
  pa_proplist_free(properties);
  pa_context_connect(context_, nullptr, PA_CONTEXT_NOFLAGS, nullptr);
}

void PulseContext::turn() {
  if (pa_mainloop_prepare(loop_.get(), kSleep) >= 0 && pa_mainloop_poll(loop_.get()) >= 0) {
    pa_mainloop_dispatch(loop_.get());
  }
}

void PulseContext::wake() {
  if (loop_) {
    pa_mainloop_wakeup(loop_.get());
  }
}

bool PulseContext::failed() const {
  return !PA_CONTEXT_IS_GOOD(pa_context_get_state(context_));
}

bool PulseContext::ready() const {
  return pa_context_get_state(context_) == PA_CONTEXT_READY;
}

QString PulseContext::error() const {
  return QString::fromLocal8Bit(pa_strerror(pa_context_errno(context_)));
}

}  // namespace tarnvex::desktop
