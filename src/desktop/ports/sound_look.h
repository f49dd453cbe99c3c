#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "desktop/ports/pulse_context.h"

namespace tarnvex::desktop {

/// Looks for a sound input in a thread of its own, so that a slow server holds nothing up. Tells
/// its maker, from the event loop, what is missing and what that means, in a sentence; nothing if
/// there is an input. Says nothing once it is destroyed.
class SoundLook : private platform::NonCopyable {
 public:
  using Told = std::function<void(const std::string& missing)>;

  explicit SoundLook(Told told);
  ~SoundLook();

 private:
  void run();
  [[nodiscard]] std::string find();
  /// The sources of a server. A monitor records what an output plays.
  struct Sources {
    int inputs = 0;
    int monitors = 0;
  };
  [[nodiscard]] Sources count();
  [[nodiscard]] static std::string missingIn(const Sources& sources);
  /// Turns the loop until then, for two seconds at the most. Says whether it has come to it.
  bool turnUntil(const std::function<bool()>& done);

  Told told_;
  /// Receives the answer.
  QObject here_;
  PulseContext pulse_;
  std::atomic<bool> leaving_ = false;
  std::thread thread_;
};

}  // namespace tarnvex::desktop
