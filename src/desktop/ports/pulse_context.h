#pragma once

#include <pulse/pulseaudio.h>

#include <QString>
#include <memory>

#include "platform/non_copyable.h"

namespace tarnvex::desktop {

/// A connection to the sound server (PulseAudio, or PipeWire in its place), and its loop. The
/// creating thread may only call `wake`; everything else belongs to the worker.
class PulseContext : private platform::NonCopyable {
 public:
  PulseContext();
  ~PulseContext();

  /// False if the system has no handles left. Then only `wake` may be called.
  [[nodiscard]] bool works() const { return loop_ != nullptr; }
  void connect();
  /// One turn of the loop: 20 ms at the most.
  void turn();
  void wake();

  [[nodiscard]] pa_context* get() const { return context_; }
  /// Lost, or never there.
  [[nodiscard]] bool failed() const;
  [[nodiscard]] bool ready() const;
  /// The server's last error in words.
  [[nodiscard]] QString error() const;

 private:
  struct FreeLoop {
    void operator()(pa_mainloop* loop) const { pa_mainloop_free(loop); }
  };
  std::unique_ptr<pa_mainloop, FreeLoop> loop_;
  pa_context* context_ = nullptr;
};

}  // namespace tarnvex::desktop
