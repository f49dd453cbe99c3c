// The wire with a real pseudo terminal; time is given by hand.
#include "radio/wire.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <filesystem>

#include "radio/control.h"
#include "radio/options.h"

namespace tarnvex::radio {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

/// A program's end of the line.
class Port {
 public:
  explicit Port(const std::string& path)
      : fd_(::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {}
  ~Port() { ::close(fd_); }
  Port(const Port&) = delete;

  bool isOpen() const { return fd_ >= 0; }
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
  bool isHungUp() {
    pollfd state{fd_, POLLIN, 0};
    return poll(&state, 1, 1000) == 1 && (state.revents & POLLHUP) != 0;
  }

 private:
  int fd_;
};

/// The kernel hands bytes over in its own time: waits until the radio's end can be read.
void hand(Wire& wire, Port& port, std::string_view bytes, Instant now) {
  port.write(bytes);
  pollfd ready{wire.fd(), POLLIN, 0};
  ASSERT_EQ(poll(&ready, 1, 1000), 1);
  wire.readable(now);
}

class WireTest : public testing::Test {
 protected:
  WireTest() {
    link_ =
        (std::filesystem::temp_directory_path() / ("tarnvex-wire-test-" + std::to_string(getpid())))
            .string();
  }
  ~WireTest() override { std::filesystem::remove(link_); }
  WireOptions options(int baud = 0) const {
    WireOptions options;
    options.line.baud = baud;
    options.link = link_;
    return options;
  }

  std::string control(Wire& wire, std::string_view line) {
    return tarnvex::radio::control(wire, line, Instant{0}, quit_);
  }

  Radio radio_;
  std::string link_;
  bool quit_ = false;
};

TEST_F(WireTest, CommandsEndWithCrAndMayComeInPieces) {
  Wire wire(radio_, options(), Instant{0});
  Port port(link_);
  ASSERT_TRUE(port.isOpen());
  hand(wire, port, "MD\r", Instant{0});
  EXPECT_EQ(port.read(), "MD00\r");
  hand(wire, port, "\nM", Instant{0});
  EXPECT_EQ(port.read(), "");
  hand(wire, port, "D\r\nSQ\r", Instant{0});
  EXPECT_EQ(port.read(), "MD00\r-\r");
  hand(wire, port, "\r", Instant{0});
  EXPECT_EQ(port.read(), "ERR\r");
}

TEST_F(WireTest, RepliesComeWhenTheirBytesHaveArrived) {
  Wire wire(radio_, options(9600), Instant{0});
  Port port(wire.path());
  hand(wire, port, "MD\r", seconds(1));
  const Instant due = seconds(1) + milliseconds(3) + Instant{8 * 10 * 1000000000LL / 9600};
  ASSERT_TRUE(wire.deadline(seconds(1)));
  EXPECT_NEAR(static_cast<double>((*wire.deadline(seconds(1)) - due).count()), 0, 10);
  wire.due(due - milliseconds(1));
  EXPECT_EQ(port.read(), "");
  wire.due(due);
  EXPECT_EQ(port.read(), "MD00\r");
  EXPECT_FALSE(wire.deadline(due));
}

TEST_F(WireTest, ADoubledCrIsAnsweredInOnePiece) {
  Wire wire(radio_, options(9600), Instant{0});
  Port port(wire.path());
  hand(wire, port, "KEY01\r\r", Instant{0});
  wire.due(milliseconds(13));
  EXPECT_EQ(port.read(), "");
  wire.due(milliseconds(30));
  EXPECT_EQ(port.read(), "OK\rERR\r");
}

TEST_F(WireTest, AnotherBaudRateIsNotHeard) {
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

TEST_F(WireTest, UnpluggedAndPluggedInAgain) {
  Wire wire(radio_, options(), Instant{0});
  {
    Port port(link_);
    EXPECT_EQ(control(wire, "hangup"), "ok\n");
    EXPECT_TRUE(port.isHungUp());
    EXPECT_FALSE(std::filesystem::is_symlink(link_));
    EXPECT_EQ(wire.fd(), -1);
    const std::string answer = control(wire, "replug");
    EXPECT_EQ(answer, "ready " + wire.path() + "\nok\n");
  }
  Port port(link_);
  hand(wire, port, "MD\r", Instant{0});
  EXPECT_EQ(port.read(), "MD00\r");
}

TEST_F(WireTest, TheLinkGoesWithTheWireUnlessItIsAnothers) {
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

TEST_F(WireTest, ControlLines) {
  Wire wire(radio_, options(), Instant{0});
  Port port(wire.path());
  for (const std::string line :
       {"scene city", "become bc245", "become bc895", "mode MD01", "tempo 2.5", "reception 1 2",
        "stray HELLO YOU", "think 0", "cut 2", "clear"}) {
    EXPECT_EQ(control(wire, line), "ok\n") << line;
  }
  EXPECT_EQ(port.read(), "HELLO YOU\r");
  for (const std::string line :
       {"", "scene storm", "become bc", "mode MD99", "tempo fast", "tempo nan", "reception 1",
        "reception 10 5", "cut x", "baud -1", "think", "dance"}) {
    EXPECT_TRUE(control(wire, line).starts_with("error: ")) << line;
  }
  const std::string state = control(wire, "state");
  for (const std::string line : {"model=bc895\n", "mode=MD01\n", "channel=1\n", "scene=city\n"}) {
    EXPECT_NE(state.find(line), std::string::npos) << state;
  }
  EXPECT_TRUE(state.ends_with("\nok\n"));
  EXPECT_FALSE(quit_);
  EXPECT_EQ(control(wire, "quit"), "ok\n");
  EXPECT_TRUE(quit_);
}

TEST(Options, AreReadOrRefused) {
  const Options options = parseOptions({"--model", "bc245", "--baud", "0", "--think-ms", "1.5",
                                        "--tempo", "2", "--any-baud", "--control"});
  EXPECT_EQ(options.model, Model::BC245XLT);
  EXPECT_EQ(options.wire.line.baud, 0);
  EXPECT_EQ(options.wire.line.think, Instant{1500000});
  EXPECT_TRUE(options.wire.anyBaud && options.control);
  for (const std::vector<std::string>& wrong : std::vector<std::vector<std::string>>{
           {"--modell"}, {"--model"}, {"--model", "x"}, {"--baud", "fast"}, {"--scene", "x"}}) {
    EXPECT_THROW(parseOptions(wrong), std::invalid_argument) << wrong[0];
  }
}

}  // namespace
}  // namespace tarnvex::radio
