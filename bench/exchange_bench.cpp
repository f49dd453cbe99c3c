// Compares an exchange of the program's link with one on a bare line. Both talk to the same radio,
// in alternating blocks, so that a busy machine slows both equally.
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <array>

#include "bench/line.h"
#include "bench/measure.h"
#include "desktop/program_rig.h"
#include "platform/non_copyable.h"

namespace tarnvex::bench {
namespace {

constexpr const char* kCommand = "MD";
constexpr int kPatienceMilliseconds = 1000;

/// A serial line used with system calls alone.
class BareLine : private platform::NonCopyable {
 public:
  explicit BareLine(const std::string& path) : file_(::open(path.c_str(), O_RDWR | O_NOCTTY)) {
    termios settings{};
    tcgetattr(file_, &settings);
    cfmakeraw(&settings);
    cfsetspeed(&settings, B9600);
    tcsetattr(file_, TCSANOW, &settings);
  }
  ~BareLine() { ::close(file_); }

  /// The least that any program needs for an exchange: a read that may wait for ever.
  std::string exchange(const std::string& command) const {
    return exchange(command, [] {});
  }
  /// The least that an exchange needs that throws away what came before, and that can be left.
  std::string carefulExchange(const std::string& command) const {
    tcflush(file_, TCIFLUSH);
    return exchange(command, [this] {
      pollfd answer{file_, POLLIN, 0};
      ::poll(&answer, 1, kPatienceMilliseconds);
    });
  }

 private:
  template <class Wait>
  std::string exchange(const std::string& command, Wait wait) const {
    const std::string line = command + "\r";
    std::string reply;
    if (::write(file_, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
      return reply;
    }
    std::array<char, 256> buffer{};
    while (!reply.ends_with('\r')) {
      wait();
      const ssize_t count = ::read(file_, buffer.data(), buffer.size());
      if (count <= 0) {
        break;
      }
      reply.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return reply;
  }

  int file_;
};

/// The program's link on its own port, without windows.
class Link {
 public:
  Link(const link::RadioModel& model, const std::string& path)
      : settings_(folder_.filePath("settings")) {
    settings_.saveSetting("Ports", "COM1", path);
    state_.ModelKey = model.key;
    link_.attachBc895({&port_, &timer_});
    link_.attachBc245({&port_, &timer_});
  }
  platform::SerialPort& port() { return port_; }
  std::string exchange(const std::string& command) { return link_.SendCommand(command); }

 private:
  QTemporaryDir folder_;
  desktop::QtEventLoop loop_;
  platform::EventGate gate_{loop_};
  desktop::IniSettings settings_;
  desktop::DeviceSlots devices_{settings_};
  desktop::QtSerialPort port_{loop_, gate_, devices_};
  desktop::QtDialogs dialogs_{gate_};
  platform::SharedState state_;
  platform::Timer timer_{25};
  link::ScannerLink link_{state_, dialogs_};
};

/// Runs a block of exchanges. Returns milliseconds per exchange.
template <class Exchange>
double block(int exchanges, Exchange exchange) {
  bool answered = !exchange().empty();
  const auto start = Clock::now();
  for (int i = 0; i < exchanges; ++i) {
    answered = !exchange().empty() && answered;
  }
  return answered ? millisecondsSince(start) / exchanges : kNotTaken;
}

void compare(Table& table, const Radio& radio, const QString& baud, int blocks, int exchanges,
             double limit) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("line");
  test::RadioProcess process(
      {"--model", radio.argument, "--baud", baud, "--scene", "quiet", "--link", path});
  Link link(radio.model(), path.toStdString());
  std::vector<double> bare;
  std::vector<double> careful;
  std::vector<double> own;
  std::vector<double> ratios;
  for (int i = 0; i < blocks; ++i) {
    {
      const BareLine line(path.toStdString());
      bare.push_back(block(exchanges, [&] { return line.exchange(kCommand); }));
      careful.push_back(block(exchanges, [&] { return line.carefulExchange(kCommand); }) /
                        bare.back());
    }
    link.port().open();
    own.push_back(block(exchanges, [&] { return link.exchange(kCommand); }));
    link.port().close();
    ratios.push_back(own.back() / bare.back());
  }
  const std::string what =
      std::string(radio.name) + " exchange, " + (baud == "0" ? "unpaced" : "9600 baud");
  table.note(what + ": bare line", quantile(bare, 0.5), "ms");
  table.note(what + ": link", quantile(own, 0.5), "ms");
  table.note(what + ": flush and poll / bare line", quantile(careful, 0.5), "");
  table.atMost(what + ": link / bare line", quantile(ratios, 0.5), limit);
}

}  // namespace

void benchExchange(Table& table) {
  for (const Radio& radio : kRadios) {
    compare(table, radio, "0", table.choose(101, 41), 200, 1.25);
    compare(table, radio, "9600", table.choose(31, 9), 10, 1.006);
  }
}

}  // namespace tarnvex::bench
