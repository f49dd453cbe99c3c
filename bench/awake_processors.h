#pragma once

#include <sys/types.h>

#include <vector>

#include "platform/non_copyable.h"

namespace tarnvex::bench {

/// Keeps all processors of the machine awake for as long as it lives. A virtual machine needs
/// longer to wake an idle processor than an exchange takes, and the ratios would compare the wakes.
///
/// A process for each processor spins at the lowest priority, and gives way to all others at once.
/// Their processor time isn't the benchmark's. Create it before any thread.
class AwakeProcessors : private platform::NonCopyable {
 public:
  AwakeProcessors();
  ~AwakeProcessors();

 private:
  std::vector<pid_t> spinners_;
};

}  // namespace tarnvex::bench
