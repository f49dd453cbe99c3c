#include "poll_rig.h"

namespace tarnvex::monitor {
namespace {

using test::Bc895Rig;

const std::string kLitMarks = "Bank, Alert, Line, Bankltr: A B C D E F G H I J, Sig: 2 / 88.5";
const std::string kLitRest = "Wx, Auto, Priority, Delay, MHZ, " + kLitMarks;

TEST(Modes, Conventional) {
  test::expectModes<Bc895Rig>({
      {"MD00", "CT > CTF; SB > SB ACJ; PR > PRF; MA > NG",
       "Frequency: Scanning, Scan, Bank, Bankltr: A C J, Sig: 2 / 000.0",
       "Frequency: Scanning, Scan, Auto, Bank, Alert, Line, Bankltr: A C J, Sig: 2 / 88.5"},
      {"MD00",
       "CT > CTN; SB > SB A; PR > PRN; MA > C012 F01551150 TN DN LN AF RF N05; PC A > PC A012",
       "Frequency: 155.1150, Alpha: Fire, Channel: P  12, CTCSS: 79.7, Scan, Trunk, Priority, "
       "Delay, LO, MHZ, CtcssStat, Bank, Bankltr: A, Sig: 2 / 79.7",
       "Frequency: 155.1150, Alpha: Fire, Channel: P  12, CTCSS: 79.7, Scan, Trunk, Auto, "
       "Priority, Delay, LO, MHZ, CtcssStat, Bank, Alert, Line, Bankltr: A, Sig: 2 / 79.7"},
      // If the tone squelch is off, the last tone stays.
      {"MD01", "CT > CTF; PR > PRF; MA > C031 F00460125 TF DF LF AF RF N05; PC B > PC B001",
       "Frequency: 46.0125, Channel: 31, MHZ, Bank, Bankltr: B, Sig: 2 / 000.0",
       "Frequency: 46.0125, Channel: 31, CTCSS: 88.5, Hold, Auto, MHZ, Bank, Alert, Line, "
       "Bankltr: B, Sig: 2 / 88.5"},
      {"MD13", "CT > CTN; PR > PRN; MA > NG",
       "Frequency: Scanning, Priority, CtcssStat, Bank, Sig: 2 / 000.0",
       "Frequency: Scanning, Hold, Auto, Priority, CtcssStat, " + kLitMarks},
      // No such tone.
      {"MD13", "CT > CTN; PR > PRF; MA > C300 F00290000 TF DN LF AF RF N40; PC J > PC J300",
       "Frequency: 29.0000, Channel: P  300, Delay, MHZ, CtcssStat, Bank, Bankltr: J, Sig: 2"
       " / 000.0",
       "Frequency: 29.0000, Channel: P  300, CTCSS: 88.5, Hold, Auto, Delay, MHZ, CtcssStat, Bank, "
       "Alert, Line, Bankltr: J, Sig: 2 / 88.5"},
  });
}

TEST(Modes, Search) {
  const std::string open = "SQ > +; SG > S018 F01551150";
  test::expectModes<Bc895Rig>({
      {"MD02", "SQ > -", "Frequency: 155.1150, Search, Sig: 2 / 000.0",
       "Frequency: 155.1150, Search, " + kLitRest},
      {"MD03", open, "Frequency: 155.1150, Alpha: Fire, Hold, Search, Sig: 2 / 000.0",
       "Frequency: 155.1150, Alpha: Fire, Hold, Search, Trunk, " + kLitRest},
      {"MD04", "SQ > -", "Frequency: 155.1150, Wx, Sig: 2 / 000.0",
       "Frequency: 155.1150, Hold, Trunk, " + kLitRest},
      {"MD05", "SQ > -", "Frequency: 155.1150, Hold, Wx, Sig: 2 / 000.0",
       "Frequency: 155.1150, Hold, Trunk, " + kLitRest},
      {"MD06", open, "Frequency: 155.1150, Alpha: Fire, Search, Trunk, Sig: 2 / 000.0",
       "Frequency: 155.1150, Alpha: Fire, Hold, Search, Trunk, " + kLitRest},
      // An open squelch doesn't count here.
      {"MD12", "SQ > +", "Frequency: 155.1150, Search, Trunk, Sig: 2 / 000.0",
       "Frequency: 155.1150, Hold, Search, Trunk, " + kLitRest},
      {"MD16", "SQ > -", "Frequency: 155.1150, Search, Auto, Sig: 2 / 000.0",
       "Frequency: 155.1150, Hold, Search, Trunk, " + kLitRest},
  });
}

TEST(Modes, Trunked) {
  const std::string rest = "Wx, Auto, Priority, Bank, Alert, Line, ";
  test::expectModes<Bc895Rig>({
      {"MD09", "IS > IS AC; DL > DLN; IC > NG",
       "Frequency: Scanning, Scan, Trunk, Delay, Bank, Bankltr: A C, Sig: 2 / 000.0",
       "Frequency: Scanning, Scan, Trunk, Wx, Auto, Priority, Delay, Bank, Alert, Line, "
       "Bankltr: A C, Sig: 2 / 88.5"},
      // Of two rows with the ID the last one counts.
      {"MD09", "IS > NG; DL > DLF; IC > IC B0 005678; SG > S020 F08510125; LO > LON",
       "Frequency: 5678, Alpha: Detectives, Channel: 10, Scan, Trunk, LO, Bank, Sig: 2 / 000.0",
       "Frequency: 5678, Alpha: Detectives, Channel: 10, Scan, Trunk, Wx, Auto, Priority, LO, "
       "Bank, Alert, Line, Sig: 2 / 88.5"},
      {"MD10", "IC > IC B3 000001; DL > DLF; IC > IC B7 12-345; SG > S020 F08510125; LO > LOF",
       "Frequency: 12-345, Alpha: Schools, Channel: 7, Hold, Trunk, Bank, Bankltr: B, Sig: 2"
       " / 000.0",
       "Frequency: 12-345, Alpha: Schools, Channel: 7, Hold, Trunk, " + rest +
           "Bankltr: B, Sig: 2 / 88.5"},
      // A frequency outside the plan.
      {"MD10", "IC > NG; DL > DLF; IC > IC B7 005678; SG > S020 F08520125; LO > LOF",
       "Frequency: 5678, Channel: 7, Hold, Trunk, Bank, Sig: 2 / 000.0",
       "Frequency: 5678, Channel: 7, Hold, Trunk, " + rest + "Sig: 2 / 88.5"},
      {"MD10", "IC > NG; DL > DLF; IC > NG",
       "Frequency: Scanning, Hold, Trunk, Bank, Sig: 2 / 000.0",
       "Frequency: Scanning, Hold, Trunk, " + rest + "Sig: 2 / 88.5"},
      {"MD07", "IDN > OK; KEY09 > OK; IDN > NO ID IS HEARD; IDF > OK; MD > MD00; IDF > OK",
       "Frequency: - -   - - -, Search, Trunk, Sig: 2 / 000.0",
       "Frequency: - -   - - -, Search, Trunk, Wx, Auto, Priority, Delay, Alert, Line, Sig: 2"
       " / 88.5"},
      {"MD08", "IDN > OK > IDN- 000000; MD > MD00; IDF > OK",
       "Frequency: Non-Active ID, Hold, Search, Trunk, Sig: 2 / 000.0",
       "Frequency: 123.4567, Hold, Search, Trunk, Wx, Auto, Priority, Delay, Alert, Line, Sig: 2"
       " / 88.5"},
  });
}

/// The panel stays as it was, except for L/O, which the start of the tick writes.
TEST(Modes, Other) {
  const std::string lit =
      "Channel: 99, CTCSS: 88.5, Scan, Hold, Search, Trunk, Wx, Auto, Priority, Delay, MHZ, "
      "CtcssStat, " +
      kLitMarks;
  test::expectModes<Bc895Rig>(
      {{"MD15", "", "Frequency: Send, Bankltr: A B C D E F G H I J, Sig: 2 / 000.0",
        "Frequency: Send, " + lit}});
  for (const char* mode : {"MD11", "MD14", "MD99", "ERR", "", "MD00 ", "MD00\rMD00"}) {
    test::expectModes<Bc895Rig>({{mode, "", "Frequency: Initializing, Sig: 2 / 000.0",
                                  "Frequency: 123.4567, Alpha: Old tag, " + lit}});
  }
}

TEST(Modes, WriteNothingToTheDisplayWhileDigitsAreKeyed) {
  const std::string id = "IS > IS A; DL > DLF; IC > IC A1 005678; SG > S020 F08";
  test::expectEntries<Bc895Rig>({
      {"MD00", "CT > CTF; SB > SB A; PR > PRF; MA > NG", ""},
      // The tag is cleared, since it belongs to the channel that the user is leaving.
      {"MD01", "CT > CTF; PR > PRF; MA > C012 F01551150 TN DN LN AF RF N05; PC A > PC A001", ""},
      {"MD02", "", "Old tag"},
      {"MD12", "", ""},
      {"MD09", "IS > IS A; DL > DLF; IC > NG", ""},
      {"MD09", id + "510125; LO > LOF", "Old tag"},
      // An ID on a frequency outside the plan overwrites the digits.
      {"MD09", id + "520125; LO > LOF", "", "5678"},
      {"MD15", "", ""},
      {"MD07",
       "IDN > OK; KEY09 > OK; IDN > OK S  A 005678; SG > S020 F08510125; IDF > OK; MD > MD00; "
       "IDF > OK",
       ""},
      {"MD08", "IDN > OK > IDNS 005678; SG > S020 F08510125; MD > MD00; IDF > OK", ""},
  });
}

TEST(Modes, LeaveMarksForTheNextMode) {
  Bc895Rig rig;
  for (const char* mode : {"MD05", "MD16", "MD06", "MD02"}) {
    rig.poll(mode, "SQ > -");
  }
  EXPECT_EQ(rig.picture(), "Frequency: 155.1150, Alpha: Fire, Search, Wx, Auto, Sig: 2 / 000.0")
      << "hold and trunk are cleared, weather and auto stay";
  rig.poll("MD01", "CT > CTF; PR > PRF; MA > NG");
  EXPECT_EQ(rig.picture(), "Frequency: Scanning, Auto, Bank, Sig: 2 / 000.0");
}

TEST(Bc895Modes, LeaveAToneThatIsBeingKeyedOnTheDisplay) {
  for (const char* channel : {"C012 F01551150 TN DN LN AF RF N05; PC A > PC A012", "NG"}) {
    test::Bc895Rig rig;
    rig.setPanel(false);
    rig.state.EntryActive = true;
    rig.form.panel.CTCSS.setCaption("10");
    rig.poll("MD13", std::string("CT > CTN; PR > PRF; MA > ") + channel);
    EXPECT_EQ(rig.form.panel.CTCSS.caption(), "10");
    EXPECT_TRUE(rig.form.panel.CTCSS.visible());
  }
}

/// While the tick waits for an answer, the display shows the same as afterwards. A channel number
/// that can't be read leaves number and tag.
TEST(Bc895Modes, KeepTheTagStillWhileTheTickAsks) {
  test::Bc895Rig rig;
  std::string tags;
  const auto watching =
      rig.form.panel.Alpha.changed.connect([&] { tags += rig.form.panel.Alpha.caption() + "; "; });
  const auto written =
      rig.form.panel.Frequency.changed.connect([&] { EXPECT_EQ(rig.radio.log.back(), "PC A"); });
  for (int i = 0; i < 2; ++i) {
    rig.poll("MD01", "CT > CTF; PR > PRF; MA > C012 F01551150; PC A > PC A012");
    rig.poll("MD01", "CT > CTF; PR > PRF; MA > C0x2 F01551150");
    EXPECT_EQ(rig.form.panel.Channel.caption(), "P  12");
    rig.poll("MD03", "SQ > +; SG > S018 F01551150");
    rig.poll("MD03", "SQ > -");
  }
  EXPECT_EQ(tags, "Fire; ");
}

TEST(Bc895Modes, ClearTheTagOfAnotherFrequency) {
  test::Bc895Rig rig;
  rig.poll("MD01", "CT > CTF; PR > PRF; MA > C012 F01551150; PC A > PC A012");
  rig.poll("MD01", "CT > CTF; PR > PRF; MA > C0x2 F04601250");
  EXPECT_EQ(rig.form.panel.Frequency.caption() + rig.form.panel.Alpha.caption(), "460.1250");
}

TEST(Bc895Modes, LeaveWhatHasNoReadableAnswer) {
  for (const auto& [mode, exchanges] :
       {std::pair{"MD00", "CT > CTN; SB > SB; PR > PRN; MA > ERR"},
        {"MD01", "CT > CTN; PR > PRN; MA > C999 Fxx\xB1"},
        {"MD02", "SQ > +; SG > S0#8"},
        {"MD09", "IS > IS; DL > DLN; IC > ERR; SG > ERR; LO > LOF"}}) {
    SCOPED_TRACE(mode);
    test::Bc895Rig rig;
    rig.setPanel(true);
    const auto& panel = rig.form.panel;
    const std::string channel = mode == std::string("MD02") ? "" : "99";
    rig.tick(test::opening(mode, "S0") + exchanges);
    EXPECT_EQ(panel.Frequency.caption() + panel.Channel.caption(), "123.4567" + channel);
    EXPECT_EQ(rig.form.hitLists.List1.count(), 0);
  }
}

}  // namespace
}  // namespace tarnvex::monitor
