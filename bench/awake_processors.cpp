#include "bench/awake_processors.h"

#include <sched.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <thread>

namespace tarnvex::bench {
namespace {

/// Ends with its parent.
[[noreturn]] void spin() {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  const sched_param none{};
  if (sched_setscheduler(0, SCHED_IDLE, &none) != 0) {
    _exit(1);
  }
  for (volatile unsigned turns = 0;;) {
    turns = turns + 1;
  }
}

}  // namespace

AwakeProcessors::AwakeProcessors() {
  for (unsigned i = 0; i < std::thread::hardware_concurrency(); ++i) {
    const pid_t child = fork();
    if (child == 0) {
      spin();
    }
    if (child > 0) {
      spinners_.push_back(child);
    }
  }
}

AwakeProcessors::~AwakeProcessors() {
  for (const pid_t child : spinners_) {
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  }
}

}  // namespace tarnvex::bench
