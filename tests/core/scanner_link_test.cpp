#include "link/scanner_link.h"

#include <gtest/gtest.h>

#include "link/resync.h"
#include "link_rig.h"

namespace tarnvex::link {
namespace {

using test::Box;
using test::Exchange;
using test::Piece;
using ScannerLinkTest = test::LinkRig;

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

TEST_F(ScannerLinkTest, DiscardsWhatHasArrivedBeforeItSends) {
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
      // The line comes this long after the reply to the previous command.
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
  // The first byte takes one of the spins.
  EXPECT_EQ(send({"MD", std::vector<Piece>{{"MD0"}, {"0\r", 72499}}}), "MD00");
  EXPECT_EQ(send({"MD", std::vector<Piece>{{"MD07"}}}), "MD0") << "a real character is lost";
  EXPECT_EQ(send({"MD", std::vector<Piece>{{"MD0"}, {"0\r", 72500}}}), "MD");
  EXPECT_FALSE(state.LinkWaiting);
  expectReported(0);
  EXPECT_EQ(send("SI > ERR"), "ERR") << "a late answer is discarded";
}

TEST_F(ScannerLinkTest, SkipsLinesThatBelongElsewhere) {
  struct Case {
    const char* command;
    std::vector<Piece> pieces;
    std::string reply;
    int boxes = 0;
  };
  const Case cases[] = {
      // Lines before the answer, in pieces, joined with it, and after it.
      {"MD", {{"ID S 001234\r"}, {"MD08\r", 60000}}, "MD08"},
      {"MD", {{"MD\r"}, {"LO"}, {"F\rMD"}, {"08\r"}}, "MD08"},
      {"MD", {{"ID E\rMD08\rID E\r"}}, "MD08"},
      {"MD", {{"ID E\r"}, {"OK\r"}}, "OK"},
      {"SB AC", {{"SQ\r"}, {"SB AC\r"}}, "SB AC"},
      {"IDF", {{"ID S 001234\r"}, {"IDF\r"}}, "IDF"},
      {"PM007", {{"PM006 01551150\r"}, {"PM007 08510125\r"}}, "PM007 08510125"},
      // What has come when the limit is reached. An answer about another place is better than none.
      {"MD", {{"LOF\r"}, {"ID E\r", 72400}}, ""},
      {"MD", {{"LOF\r"}, {"MD0"}}, "MD"},
      {"PM007", {{"ID E\r"}, {"PM006 01551150\r"}}, "PM006 01551150"},
      {"MD", {{"LOF\r"}, {"MD0", 1, true}}, "", 1},
      {"KEY00", {{"ID E\r"}}, "ID E"},
  };
  for (const auto& [command, pieces, reply, boxes] : cases) {
    SCOPED_TRACE(std::string(command) + " answered by " + pieces.front().bytes);
    connect();
    EXPECT_EQ(send({command, pieces}), reply);
    expectReported(boxes);
  }
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

TEST_F(ScannerLinkTest, StaysQuietWhileItsMessageIsOpen) {
  int behind = 0;
  dialogs.whileOpen = [&] {
    // While the box is open, the poll goes on and the port is open.
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

TEST_F(ScannerLinkTest, ShowsItsMessageAtOnceWhenTheDeviceIsGone) {
  const auto lost = [](const std::string& bytes) { return std::vector<Piece>{{bytes, 1, true}}; };
  EXPECT_EQ(send({"MD", lost("MD0")}), "") << "in the middle of a reply";
  expectReported(1);
  connect();
  EXPECT_EQ(query(lost("SS01551150\rEN")), "");
  expectReported(1);
  connect();
  send({"IDN", std::vector<Piece>{{"OK\r"}, {"ID S 00", 1, true}}});
  EXPECT_EQ(link.ReadReply(), "");
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
  // Streamed lines and an echo, even directly after the end. Any other line may be a torn entry.
  EXPECT_EQ(query({{"ID E\rSS\rSS01551150\r"}, {"S08510125\rID E\rEND\rID E\r"}}),
            "SS01551150\rS08510125\rEND");
  radio.expect({{"IL", "IL001234\rEND"}});
  EXPECT_EQ(link.QueryIdLockouts(), "IL001234\rEND");
  expectReported(0);
  EXPECT_EQ(query({{"ND\r"}}), "") << "three bytes aren't a list";
  expectReported(1);
}

TEST_F(ScannerLinkTest, EndsAnEndlessReadOnlyWhenTheUserLeaves) {
  radio.userLeaves = true;
  EXPECT_EQ(query({{"SS01551150\rEN"}}), "SS01551150\rE");
  send({"IDN", std::vector<Piece>{{"\r"}, {"IDNS"}}});
  EXPECT_GE(radio.spins, kQuietSpins) << "the rest of the list may still come";
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
  // Bytes on their way when the port is opened are discarded.
  radio.send("OK\r");
  radio.expect({{"SI", std::vector<Piece>{{"SI\r"}, {"ERR\r"}}}});
  EXPECT_EQ(link.ProbeCommand(*port, "SI"), "ERR");
  radio.expect({{"SI", std::vector<Piece>{{"x"}}}});
  EXPECT_EQ(link.ProbeCommand(*port, "SI"), "") << "an answer without an end doesn't block it";
  EXPECT_TRUE(port->portOpen());
  EXPECT_EQ(link.SendCommand("SI"), "") << "no main window yet";
  expectReported(0);
}

TEST_F(ScannerLinkTest, TalksToTheWindowThatTheModelKeyPicks) {
  const auto other = makePort();
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
