// The wire with a real pseudo terminal. The tests set the time.
#include "radio/wire.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <filesystem>

#include "radio/control.h"
#include "radio/non_copyable.h"
#include "radio/options.h"

namespace tarnvex::radio {
namespace {

using std::chrono::seconds;

/// The program's end of the line.
class Port : private NonCopyable {
 public:
  explicit Port(const std::string& path)
      : fd_(::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {}
  ~Port() { ::close(fd_); }

  void write(std::string_view bytes) {
    ASSERT_EQ(::write(fd_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  std::string read() {
    std::array<char, 4096> buffer{};
    const ssize_t count = ::read(fd_, buffer.data(), buffer.size());
    return count > 0 ? std::string(buffer.data(), static_cast<std::size_t>(count)) : "";
  }
  void setBaud(speed_t speed) {
    termios settings{};
    tcgetattr(fd_, &settings);
    cfsetspeed(&settings, speed);
    tcsetattr(fd_, TCSANOW, &settings);
  }

 private:
  int fd_;
};

/// Writes bytes and waits until the kernel has passed them to the radio's end.
void hand(Wire& wire, Port& port, std::string_view bytes, Instant now) {
  port.write(bytes);
  pollfd ready{wire.fd(), POLLIN, 0};
  ASSERT_EQ(poll(&ready, 1, 1000), 1);
  wire.readable(now);
}

class WireTest : public testing::Test {
 protected:
  ~WireTest() override { std::filesystem::remove(link_); }
  [[nodiscard]] WireOptions options(int baud = 0) const {
    WireOptions options;
    options.line.baud = baud;
    options.link = link_;
    return options;
  }
  std::string control(Wire& wire, std::string_view line) {
    return tarnvex::radio::control(wire, line, Instant{0}, quit_);
  }

  Radio radio_;
  std::string link_ =
      std::filesystem::temp_directory_path() / ("tarnvex-wire-test-" + std::to_string(getpid()));
  bool quit_ = false;
};

TEST_F(WireTest, AnotherBaudRateIsNotAnswered) {
  Wire wire(radio_, options(9600), Instant{0});
  Port port(wire.path());
  port.setBaud(B4800);
  hand(wire, port, "MD\r", Instant{0});
  wire.due(seconds(1));
  EXPECT_EQ(port.read(), "");
  EXPECT_EQ(control(wire, "baud 4800"), "ok\n");
  hand(wire, port, "MD\r", seconds(1));
  wire.due(seconds(2));
  EXPECT_EQ(port.read(), "MD00\r");
}

TEST_F(WireTest, TheLinkIsRemovedWithTheWireUnlessItPointsElsewhere) {
  {
    Wire wire(radio_, options(), Instant{0});
    EXPECT_EQ(std::filesystem::read_symlink(link_), wire.path());
  }
  EXPECT_FALSE(std::filesystem::is_symlink(link_));
  {
    Wire first(radio_, options(), Instant{0});
    const auto second = std::make_unique<Wire>(radio_, options(), Instant{0});
    EXPECT_EQ(std::filesystem::read_symlink(link_), second->path());
    first.hangUp();
    EXPECT_TRUE(std::filesystem::is_symlink(link_));
  }
}

TEST_F(WireTest, ControlLinesAreCarriedOutOrRefused) {
  Wire wire(radio_, options(), Instant{0});
  Port port(wire.path());
  for (const std::string line :
       {"scene day", "become bc245", "become bc895", "mode MD01", "tempo 1440", "reception 1 2",
        "talk 1616 1", "stray HELLO YOU", "think 0", "cut 2", "clear"}) {
    EXPECT_EQ(control(wire, line), "ok\n") << line;
  }
  EXPECT_EQ(port.read(), "HELLO YOU\r");
  for (const std::string line :
       {"", "scene storm", "become bc", "mode MD99", "tempo fast", "tempo nan", "reception 1",
        "reception 10 5", "cut x", "baud -1", "think", "dance"}) {
    EXPECT_TRUE(control(wire, line).starts_with("error: ")) << line;
  }
  EXPECT_NE(control(wire, "state").find("\nhour=6\n"), std::string::npos);
  EXPECT_FALSE(quit_);
  EXPECT_EQ(control(wire, "quit"), "ok\n");
  EXPECT_TRUE(quit_);
}

TEST(Options, NonsenseIsRefused) {
  const char* const cases[][2] = {{"--modell", ""},     {"--model", "x"}, {"--baud", "fast"},
                                  {"--scene", "storm"}, {"--seed", "-1"}, {"--stream", "0"}};
  for (const auto& [name, value] : cases) {
    EXPECT_THROW(parseOptions({name, value}), std::invalid_argument) << name;
  }
  EXPECT_THROW(parseOptions({"--model"}), std::invalid_argument);
}

}  // namespace
}  // namespace tarnvex::radio
