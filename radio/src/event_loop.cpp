#include "radio/event_loop.h"

#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <system_error>

#include "radio/control.h"

namespace tarnvex::radio {
namespace {

sigset_t endingSignals() {
  sigset_t set{};
  sigemptyset(&set);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    sigaddset(&set, signal);
  }
  return set;
}

void print(const std::string& text) {
  std::fputs(text.c_str(), stdout);
  std::fflush(stdout);
}

/// Reads control lines from standard input and carries them out.
class ControlInput {
 public:
  /// False at the end of input or after "quit".
  bool serve(Wire& wire) {
    std::array<char, 1024> buffer{};
    const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count <= 0) {
      return count < 0 && errno == EINTR;
    }
    pending_.append(buffer.data(), static_cast<std::size_t>(count));
    bool quit = false;
    for (std::size_t end = 0; !quit && (end = pending_.find('\n')) != std::string::npos;) {
      print(control(wire, pending_.substr(0, end), clockNow(), quit));
      pending_.erase(0, end + 1);
    }
    return !quit;
  }

 private:
  std::string pending_;
};

void wait(std::array<pollfd, 3>& fds, std::optional<Instant> deadline) {
  timespec left{};
  if (deadline) {
    constexpr std::int64_t kSecond = 1'000'000'000;
    const auto ns = std::max<std::int64_t>(0, (*deadline - clockNow()).count());
    left = {ns / kSecond, ns % kSecond};
  }
  if (ppoll(fds.data(), fds.size(), deadline ? &left : nullptr, nullptr) < 0) {
    if (errno != EINTR) {
      throw std::system_error(errno, std::generic_category(), "ppoll");
    }
    for (pollfd& each : fds) {
      each.revents = 0;
    }
  }
}

/// Does what is due on the line and in the control input. False at the end of that input.
bool serve(Wire& wire, const pollfd& line, const pollfd& control, ControlInput& input) {
  if ((line.revents & POLLIN) != 0) {
    wire.readable(clockNow());
  }
  if (control.revents != 0 && !input.serve(wire)) {
    return false;
  }
  const Instant now = clockNow();
  const auto deadline = wire.deadline(now);
  if (deadline && *deadline <= now) {
    wire.due(now);
  }
  return true;
}

}  // namespace

Instant clockNow() {
  return std::chrono::steady_clock::now().time_since_epoch();
}

void holdSignals() {
  const sigset_t set = endingSignals();
  sigprocmask(SIG_BLOCK, &set, nullptr);
  signal(SIGPIPE, SIG_IGN);
}

void preferTiming() {
  prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
  setpriority(PRIO_PROCESS, 0, -15);
}

void runWire(Wire& wire, bool control) {
  const sigset_t set = endingSignals();
  const int signals = signalfd(-1, &set, SFD_CLOEXEC);
  if (signals < 0) {
    throw std::system_error(errno, std::generic_category(), "signalfd");
  }
  print("ready " + wire.path() + '\n');
  ControlInput input;
  std::array<pollfd, 3> fds{};
  do {
    fds = {pollfd{wire.fd(), POLLIN, 0}, pollfd{control ? STDIN_FILENO : -1, POLLIN, 0},
           pollfd{signals, POLLIN, 0}};
    wait(fds, wire.deadline(clockNow()));
  } while (fds[2].revents == 0 && serve(wire, fds[0], fds[1], input));
  ::close(signals);
}

}  // namespace tarnvex::radio
