#include "link/scanner_link.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace tarnvex::link {
namespace {

using test::Box;
using test::Exchange;
using test::Piece;

const Box kSilence{
    "Your scanner is not responding. Please check your connections and verify that you have "
    "selected the correct COM port, and that the scanner is in Remote mode.",
    "Scanner Not Responding", 48};

/// A link with the port of one main window, open, and its poll running.
struct ScannerLinkTest : testing::Test, test::World {
  std::unique_ptr<platform::SerialPort> port = ports.create();
  platform::Timer poll{25};

  ScannerLinkTest() {
    link.attachBc895({port.get(), &poll});
    connect();
  }
  /// What was on its way is lost with the old connection.
  void connect() {
    port->close();
    port->open();
    poll.setEnabled(true);
    radio.log.clear();
  }
  std::string send(const std::string& transcript) { return send(test::script(transcript)[0]); }
  std::string send(const Exchange& exchange) {
    radio.expect({exchange});
    return link.SendCommand(exchange.command);
  }
  std::string query(std::vector<Piece> answer) {
    radio.expect({{"SS", std::move(answer)}});
    return link.QuerySearchSkips();
  }
  /// What is left after a failure: one message, no poll, no port.
  void expectReported(int boxes) {
    EXPECT_EQ(dialogs.takeBoxes(), std::vector<Box>(static_cast<std::size_t>(boxes), kSilence));
    EXPECT_EQ(poll.enabled(), boxes == 0);
    EXPECT_EQ(port->portOpen(), boxes == 0);
  }
};

TEST_F(ScannerLinkTest, ReturnsTheReplyWithoutItsLastCharacter) {
  const std::pair<std::vector<Piece>, std::string> cases[] = {
      {{{"MD00\r"}}, "MD00"},
      {{{"\r"}}, ""},
      {{{"M"}, {"D"}, {"0", 900}, {"7\r"}}, "MD07"},
      {{{"MD00\rMD01\r"}}, "MD00\rMD01"},
      {{{"MD00\r"}, {"late"}}, "MD00"},
      {{{"MD00"}, {"\rMD0"}, {"1\r"}}, "MD00\rMD01"},
      {{{"\xFE\x80 \xFF\r"}}, "\xFE\x80 \xFF"},
      {{{std::string("\0M\0\r", 4)}}, std::string("\0M\0", 3)},
      {{{"\n\r"}}, "\n"},
  };
  for (const auto& [pieces, reply] : cases) {
    connect();
    EXPECT_EQ(send({"MD", pieces}), reply);
    expectReported(0);
    EXPECT_FALSE(state.LinkWaiting);
  }
}

TEST_F(ScannerLinkTest, ThrowsAwayWhatWaitsBeforeItSends) {
  radio.send("IDNS 001234\rERR");
  EXPECT_EQ(send("MD > MD08"), "MD08");
}

TEST_F(ScannerLinkTest, GivesUpExactlyAtItsSpinLimits) {
  const std::tuple<const char*, int, std::string, int> cases[] = {
      {"command", 72500, "MD00", 0}, {"command", 72501, "", 1}, {"list", 72500, "END", 0},
      {"list", 72501, "", 1},        {"line", 2000, "IDNS", 0}, {"line", 2001, "", 0},
      {"probe", 72500, "ERR", 0},    {"probe", 72501, "", 0}};
  for (const auto& [name, spins, reply, boxes] : cases) {
    SCOPED_TRACE(name + std::to_string(spins));
    const std::string answer = std::string(name) == "list" ? "END\r" : reply + "\r";
    std::string got;
    if (std::string(name) == "command") {
      got = send({"MD", std::vector<Piece>{{answer, spins}}});
    } else if (std::string(name) == "list") {
      got = query({{answer, spins}});
    } else if (std::string(name) == "line") {
      // The line comes that long behind the reply to the command before it.
      send({"IDN", std::vector<Piece>{{"\r"}, {"IDNS\r", spins}}});
      got = link.ReadReply();
    } else {
      radio.expect({{"SI", std::vector<Piece>{{answer, spins}}}});
      got = link.ProbeCommand(*port, "SI");
      EXPECT_EQ(port->portOpen(), spins <= 72500) << "a silent probe closes its port";
      connect();
    }
    EXPECT_EQ(got, reply);
    expectReported(boxes);
    EXPECT_EQ(state.LinkWaiting, reply.empty());
    connect();
  }
}

TEST_F(ScannerLinkTest, ReadsAReplyNoLongerThanItsSecondLimit) {
  // The first look at the bytes is one of the spins.
  EXPECT_EQ(send({"MD", std::vector<Piece>{{"MD0"}, {"0\r", 72499}}}), "MD00");
  EXPECT_EQ(send({"MD", std::vector<Piece>{{"MD07"}}}), "MD0") << "a real character is lost";
  EXPECT_EQ(send({"MD", std::vector<Piece>{{"MD0"}, {"0\r", 72500}}}), "MD");
  EXPECT_FALSE(state.LinkWaiting);
  expectReported(0);
  // What came too late belongs to nobody.
  radio.expect({{"SI", std::vector<Piece>{{"ERR\r", 2}}}});
  EXPECT_EQ(link.SendCommand("SI"), "0") << "the end of the last reply comes first";
  EXPECT_EQ(send("SI > ERR"), "ERR");
}

TEST_F(ScannerLinkTest, ReportsSilenceOnceAndThenReturnsAtOnce) {
  EXPECT_EQ(send("MD"), "");
  EXPECT_EQ(radio.takeLog(), "MD; close");
  expectReported(1);
  EXPECT_TRUE(state.LinkWaiting);
  const auto spins = radio.spins;
  for (int i = 0; i < 1000; ++i) {
    EXPECT_EQ(link.SendCommand("MA001") + link.QuerySearchSkips() + link.QueryIdLockouts() +
                  link.ReadReply() + link.ProbeCommand(*port, "SI"),
              "");
  }
  EXPECT_EQ(radio.spins, spins);
  EXPECT_EQ(radio.takeLog(), "");
  EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(ScannerLinkTest, StaysQuietWhileItsMessageStands) {
  int behind = 0;
  dialogs.whileOpen = [&] {
    // The poll goes on behind the box; the port is still open.
    ++behind;
    EXPECT_TRUE(port->portOpen());
    EXPECT_EQ(link.SendCommand("SI") + link.ReadReply() + link.QueryIdLockouts(), "");
  };
  EXPECT_EQ(send("MD"), "");
  EXPECT_EQ(behind, 1);
  EXPECT_EQ(radio.takeLog(), "MD; close");
  expectReported(1);
  dialogs.whileOpen = nullptr;
  connect();
  EXPECT_EQ(send("MD > MD00"), "MD00") << "a new link talks again";
}

TEST_F(ScannerLinkTest, RunsIntoItsMessageAtOnceWhenTheDeviceIsGone) {
  EXPECT_EQ(send({"MD", std::vector<Piece>{{"MD0", 1, true}}}), "MD") << "lost in the middle";
  expectReported(0);
  const auto spins = radio.spins;
  EXPECT_EQ(link.SendCommand("SI"), "");
  expectReported(1);
  EXPECT_EQ(radio.spins, spins);
}

TEST_F(ScannerLinkTest, ReadsListsUpToTheirEnd) {
  EXPECT_EQ(query({{"SS01551150\rSS0"}, {"8510125\r", 90000}, {"EN"}, {"D\r"}}),
            "SS01551150\rSS08510125\rEND");
  EXPECT_EQ(query({{"END\r"}}), "END");
  radio.expect({{"IL", "IL001234\rEND"}});
  EXPECT_EQ(link.QueryIdLockouts(), "IL001234\rEND");
  expectReported(0);
  // Three bytes are no list.
  EXPECT_EQ(query({{"ND\r"}}), "");
  expectReported(1);
}

TEST_F(ScannerLinkTest, LeavesAnUnendingReadOnlyWithTheUser) {
  radio.userLeaves = true;
  EXPECT_EQ(query({{"SS01551150\rEN"}}), "SS01551150\rE");
  send({"IDN", std::vector<Piece>{{"\r"}, {"IDNS"}}});
  EXPECT_EQ(link.ReadReply(), "IDN");
  expectReported(0);
}

TEST_F(ScannerLinkTest, TakesStreamedLinesAsTheyCome) {
  EXPECT_EQ(send("IDN > OK > IDNS 001234"), "OK");
  EXPECT_EQ(link.ReadReply(), "IDNS 001234");
  radio.send("IDNS 000001\rIDNS 000002\r");
  EXPECT_EQ(link.ReadReply(), "IDNS 000001\rIDNS 000002");
  EXPECT_EQ(link.ReadReply(), "");
  EXPECT_TRUE(state.LinkWaiting);
  expectReported(0);
}

TEST_F(ScannerLinkTest, ProbesItsOwnPort) {
  link.detach(*port);
  radio.expect({{"SI", "ERR"}});
  EXPECT_EQ(link.ProbeCommand(*port, "SI"), "ERR");
  EXPECT_TRUE(port->portOpen());
  EXPECT_EQ(link.SendCommand("SI"), "") << "no main window yet";
  expectReported(0);
}

TEST_F(ScannerLinkTest, TalksToTheWindowThatTheModelKeyPicks) {
  const auto other = ports.create();
  platform::Timer otherPoll{25};
  link.attachBc245({other.get(), &otherPoll});
  state.ModelKey = "BC245";
  EXPECT_EQ(link.SendCommand("MD"), "") << "its port is closed";
  EXPECT_EQ(radio.takeLog(), "");
  for (const char* key : {"BC895", "", "BC"}) {
    state.ModelKey = key;
    EXPECT_EQ(send("MD > MD00"), "MD00");
  }
  port->close();
  other->open();
  otherPoll.setEnabled(true);
  state.ModelKey = "BC245";
  send("MD");
  EXPECT_FALSE(other->portOpen() || otherPoll.enabled());
  EXPECT_TRUE(poll.enabled()) << "the failure belongs to the other window";
}

}  // namespace
}  // namespace tarnvex::link
