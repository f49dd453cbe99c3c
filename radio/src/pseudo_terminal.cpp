#include "radio/pseudo_terminal.h"

#include <fcntl.h>
#include <limits.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace tarnvex::radio {
namespace {

struct Rate {
  int baud;
  speed_t speed;
};
constexpr std::array<Rate, 10> kRates{{{300, B300},
                                       {600, B600},
                                       {1200, B1200},
                                       {2400, B2400},
                                       {4800, B4800},
                                       {9600, B9600},
                                       {19200, B19200},
                                       {38400, B38400},
                                       {57600, B57600},
                                       {115200, B115200}}};

[[noreturn]] void fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

void setRaw(int fd, int baud) {
  termios settings{};
  if (tcgetattr(fd, &settings) != 0) {
    fail("tcgetattr");
  }
  cfmakeraw(&settings);
  for (const Rate& rate : kRates) {
    if (rate.baud == baud) {
      cfsetspeed(&settings, rate.speed);
    }
  }
  if (tcsetattr(fd, TCSANOW, &settings) != 0) {
    fail("tcsetattr");
  }
}

}  // namespace

PseudoTerminal::PseudoTerminal(int baud) {
  master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (master_ < 0) {
    fail("posix_openpt");
  }
  std::array<char, PATH_MAX> name{};
  if (grantpt(master_) != 0 || unlockpt(master_) != 0 ||
      ptsname_r(master_, name.data(), name.size()) != 0) {
    ::close(master_);
    fail("pseudo terminal");
  }
  path_ = name.data();
  slave_ = ::open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (slave_ < 0) {
    ::close(master_);
    fail(path_.c_str());
  }
  setRaw(slave_, baud);
}

PseudoTerminal::~PseudoTerminal() {
  ::close(slave_);
  ::close(master_);
}

std::optional<int> PseudoTerminal::baud() const {
  termios settings{};
  if (tcgetattr(slave_, &settings) != 0) {
    return std::nullopt;
  }
  const speed_t speed = cfgetospeed(&settings);
  for (const Rate& rate : kRates) {
    if (rate.speed == speed) {
      return rate.baud;
    }
  }
  return std::nullopt;
}

std::string PseudoTerminal::read() {
  std::array<char, 4096> buffer{};
  const ssize_t count = ::read(master_, buffer.data(), buffer.size());
  return count > 0 ? std::string(buffer.data(), static_cast<std::size_t>(count)) : std::string();
}

void PseudoTerminal::write(const std::string& bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = ::write(master_, bytes.data() + done, bytes.size() - done);
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count <= 0) {
      return;
    }
    done += static_cast<std::size_t>(count);
  }
}

void StableLink::pointTo(const std::string& target) {
  if (path_.empty()) {
    return;
  }
  const std::string fresh = path_ + ".new";
  ::unlink(fresh.c_str());
  if (::symlink(target.c_str(), fresh.c_str()) != 0) {
    fail(fresh.c_str());
  }
  if (::rename(fresh.c_str(), path_.c_str()) != 0) {
    fail(path_.c_str());
  }
  target_ = target;
}

void StableLink::remove() {
  if (path_.empty() || target_.empty()) {
    return;
  }
  std::array<char, PATH_MAX> target{};
  const ssize_t length = ::readlink(path_.c_str(), target.data(), target.size());
  const bool ours = length > 0 && target_ == std::string(target.data(), length);
  if (ours) {
    ::unlink(path_.c_str());
  }
  target_.clear();
}

}  // namespace tarnvex::radio
