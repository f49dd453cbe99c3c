#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "desktop/ports/pulse_context.h"

namespace tarnvex::desktop {

/// Looks for a sound input in a thread of its own, so that a slow server holds nothing up. Tells
/// its maker, from the event loop, what is missing: "No sound server", "No sound input", or
/// nothing. Says nothing once it is destroyed.
class SoundLook : private platform::NonCopyable {
 public:
  using Told = std::function<void(const std::string& missing)>;

  explicit SoundLook(Told told);
  ~SoundLook();

 private:
  void run();
  [[nodiscard]] std::string find();
  /// How many inputs the server has.
  [[nodiscard]] int count();
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
