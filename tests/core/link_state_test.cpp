#include "link/link_state.h"

#include <gmock/gmock.h>

#include <set>

#include "link/traffic_log.h"
#include "shell/bc895_form.h"
#include "support/world.h"

namespace tarnvex::link {
namespace {

using platform::PortTrouble;
using test::Piece;
using test::script;

struct LinkStateTest : testing::Test, test::World {
  [[nodiscard]] std::string now() const {
    return (form.linkState.live() ? "live: " : "dead: ") + form.linkState.text();
  }

  shell::Form4 form{services, outside()};
};

TEST_F(LinkStateTest, FollowsTheLineFromOpeningToLoss) {
  EXPECT_EQ(now(), "dead: Not connected");
  form.MSComm1->open();
  EXPECT_EQ(now(), "dead: Waiting for the radio on ttyUSB0");
  radio.expect(script("SI > ERR"));
  link.SendCommand("SI");
  const std::string connected = "live: Connected to BC895XLT on ttyUSB0";
  EXPECT_EQ(now(), connected);
  link.ReadReply();
  EXPECT_EQ(now(), connected) << "the radio need not send by itself";

  radio.expect(script("SI"));
  clock.text = "2031-05-06 11:46:09";
  dialogs.whileOpen = [&] {
    EXPECT_EQ(now(), "dead: ttyUSB0: no reply since 11:46; is the radio in its Remote mode?");
  };
  link.SendCommand("SI");
  EXPECT_EQ(dialogs.boxes.size(), 1U);
  dialogs.whileOpen = {};
  EXPECT_FALSE(form.MSComm1->portOpen());
  EXPECT_EQ(now(), "dead: ttyUSB0: no reply since 11:46; is the radio in its Remote mode?")
      << "closing the port leaves the reason";

  form.linkControls.Command3.userClick();
  radio.expect(script("SI > ERR"));
  link.SendCommand("SI");
  EXPECT_EQ(now(), connected);
  radio.expect({{"SI", std::vector<Piece>{{"", 1, true}}}});
  link.SendCommand("SI");
  EXPECT_EQ(now(), "dead: ttyUSB0 was unplugged at 11:46");
  form.linkState.deviceIsBack();
  EXPECT_EQ(now(), "dead: The adapter is plugged in again; press Connect");
}

TEST_F(LinkStateTest, TakesOnlyAKnownAnswerForARadios) {
  form.MSComm1->open();
  form.linkState.deviceIsBack();
  const std::string waiting = "dead: Waiting for the radio on ttyUSB0";
  for (const std::string& text :
       {std::string("$GPRMC,081836,A,3751.65,S"), std::string("\r"), std::string("\n$GPGSA,A,3\r"),
        std::string("SI\r"), std::string("\xFF\x80M"), std::string("MD")}) {
    form.linkState.sent("SI\r");
    form.linkState.received(text);
    EXPECT_EQ(now(), waiting) << text;
  }
  form.linkState.received("00\r");
  EXPECT_EQ(now(), "live: Connected to BC895XLT on ttyUSB0");
}

TEST_F(LinkStateTest, IsNotLiveWhileTheLineOnlyHums) {
  form.MSComm1->open();
  radio.expect({{"SI", std::vector<Piece>{{"ER"}, {"R\r"}}}});
  radio.expect({{"SI", std::vector<Piece>(200, Piece{"UU", 1500})}});
  radio.expect(script("SI > ERR"));
  link.SendCommand("SI");
  std::set<std::string> states;
  const auto connection = form.linkState.changed.connect([&] { states.insert(now()); });
  radio.whileWaiting = [&] { clock.offsetMilliseconds += 60; };
  link.SendCommand("SI");
  link.SendCommand("SI");
  const std::string connected = "live: Connected to BC895XLT on ttyUSB0";
  EXPECT_EQ(states,
            std::set({connected, std::string("dead: ttyUSB0: no reply since 07:08; is the radio in "
                                             "its Remote mode?")}));
  EXPECT_EQ(now(), connected) << "the radio answers again";

  std::vector<Piece> hum(100, Piece{"UU", 1500});
  hum.push_back({"", 1, true});
  radio.expect({{"SI", hum}});
  link.SendCommand("SI");
  link.SendCommand("SI");
  EXPECT_EQ(now(), "dead: ttyUSB0 was unplugged at 07:08");
}

TEST_F(LinkStateTest, SaysWhyAPortCannotBeOpened) {
  const std::vector<std::pair<PortTrouble, std::string>> cases = {
      {PortTrouble::NoDevice, "No serial device found"},
      {PortTrouble::NotThere, "ttyUSB1 isn't there; is the adapter plugged in?"},
      {PortTrouble::NoRight, "ttyUSB1: no permission to use it; join the group dialout"},
      {PortTrouble::InUse, "ttyUSB1: in use by another program"},
      {PortTrouble::Other, "The port burns."}};
  radio.refusals[2] = "The port burns.";
  for (const auto& [trouble, text] : cases) {
    radio.trouble = trouble;
    form.linkControls.Option2.userClick();
    EXPECT_EQ(now(), "dead: " + text);
  }
}

/// The lines without their times.
std::vector<std::string> linesOf(const TrafficLog& log) {
  std::vector<std::string> lines;
  for (const std::string& line : test::splitAt("\n", log.text())) {
    if (!line.empty()) {
      EXPECT_EQ(line.find_first_not_of("0123456789:."), std::size_t{12}) << line;
      lines.push_back(line.substr(13));
    }
  }
  return lines;
}

TEST(TrafficLog, KeepsTheLastLinesOfBothWays) {
  TrafficLog log;
  test::ScriptedRadio radio;
  const auto port = watchedPorts(test::scriptedPorts(radio), log)();
  radio.expect({{"SI", std::vector<Piece>{{"BC2"}, {"45 1\x07\rMD"}, {"00\r"}}}});
  radio.expect(script("SG"));
  const auto wait = [&] {
    platform::Spins budget{100};
    return port->waitForInput(1, budget);
  };
  port->open();
  port->output("SI\r");
  while (wait()) {
    port->input();
  }
  port->output("SG\r");
  EXPECT_FALSE(wait());
  EXPECT_FALSE(wait());
  radio.send("IDN");
  port->discardInput();
  port->close();
  EXPECT_THAT(linesOf(log), testing::ElementsAre("# opened ttyUSB0 at 9600,n,8,1", "> SI",
                                                 "< BC245 1\\x07", "< MD00", "> SG", "# no reply",
                                                 "# 3 bytes discarded", "# closed"));
  for (int i = 0; i < 700; ++i) {
    log.sent("K" + std::to_string(i) + "\r");
  }
  log.received(std::string(5000, 'x'));
  const auto lines = linesOf(log);
  ASSERT_EQ(lines.size(), TrafficLog::kLines);
  EXPECT_EQ(lines.front(), "> K201");
  EXPECT_LT(lines.back().size(), 300U) << "a line without end";
}

}  // namespace
}  // namespace tarnvex::link
