// What the polls of both radios hear, up to the store.
#include <gmock/gmock.h>

#include "platform/convert.h"
#include "poll_rig.h"

namespace tarnvex::monitor {
namespace {

using Lines = std::vector<std::string>;

std::string number(double value) {
  return platform::shortest(value);
}

/// "radio mode frequency id (tag) bank/channel tone bars", without unknown values.
std::string line(const Reception& reception) {
  const Heard& heard = reception.heard;
  std::string text = reception.radio + " " + heard.mode;
  for (const std::string& part :
       {heard.frequency == 0 ? "" : number(static_cast<double>(heard.frequency) / 1e6),
        heard.talkgroup.empty() ? "" : "id " + heard.talkgroup,
        heard.tag.empty() ? "" : "(" + heard.tag + ")",
        heard.bank == 0 ? "" : std::to_string(heard.bank) + "/" + std::to_string(heard.channel),
        heard.tone == 0 ? "" : number(heard.tone), std::string(std::size_t(heard.bars), '+')}) {
    text += part.empty() ? "" : " " + part;
  }
  return text;
}

template <class Rig>
Lines logged(Rig& rig) {
  rig.receptions.stop();
  Lines lines;
  for (const auto& [key, reception] : rig.receptionStore.rows) {
    lines.push_back(line(reception));
  }
  return lines;
}

struct HeardCase {
  const char* mode;
  const char* exchanges;
  const char* row;
  const char* signal = "S018 F01551150";
};

TEST(ReceptionLog, HearsWhatTheBc895xltHears) {
  const std::vector<HeardCase> cases = {
      {"MD00", "CT > CTF; SB > SB A; PR > PRF; MA > NG", ""},
      {"MD00",
       "CT > CTN; SB > SB A; PR > PRN; MA > C012 F01551150 TN DN LN AF RF N05; PC A > PC A012",
       "BC895XLT MD00 155.115 (Fire) 1/12 79.7 ++"},
      {"MD00", "CT > CTF; SB > SB A; PR > PRF; MA > C012 F0155x150 TN DN LN; PC A > PC A012", ""},
      {"MD00", "CT > CTF; SB > SB A; PR > PRF; MA > ERR", ""},
      {"MD01", "CT > CTF; PR > PRF; MA > C031 F00460125 TF DF LF AF RF N05; PC B > PC B001",
       "BC895XLT MD01 46.0125 2/31 ++"},
      // The radio names its channel even if nothing is received.
      {"MD01", "CT > CTF; PR > PRF; MA > C031 F00460125 TF DF LF AF RF N05; PC B > PC B001", "",
       "S014 F01551150"},
      {"MD02", "SQ > -", ""},
      {"MD02", "SQ > +; SG > S025 F01551150", "BC895XLT MD02 155.115 (Fire) ++++"},
      {"MD04", "SQ > +; SG > S019 F01625500", "BC895XLT MD04 162.55 ++"},
      {"MD12", "SQ > +", ""},
      {"MD09", "IS > NG; DL > DLF; IC > IC B0 005678; SG > S022 F08510125; LO > LON",
       "BC895XLT MD09 851.0125 id 5678 (Detectives) 2/10 +++"},
      {"MD09", "IS > NG; DL > DLF; IC > IC B7 12-345; SG > ERR; LO > LOF",
       "BC895XLT MD09 id 12-345 ++"},
      {"MD09", "IS > NG; DL > DLF; IC > NG", ""},
      {"MD07", "IDN > OK; KEY09 > OK; IDN > NO ID IS HEARD; IDF > OK; MD > MD00; IDF > OK", ""},
      {"MD07",
       "IDN > OK; KEY09 > OK; IDN > IDN SB1 005678; SG > S020 F08510125; IDF > OK; MD > MD00; IDF "
       "> OK",
       "BC895XLT MD07 851.0125 id 5678 (Detectives) 2/0 ++"},
      {"MD15", "", ""},
  };
  for (const HeardCase& one : cases) {
    SCOPED_TRACE(std::string(one.mode) + " " + one.exchanges);
    test::Bc895Rig rig;
    rig.tick(test::opening(one.mode, one.signal) + std::string(one.exchanges));
    EXPECT_EQ(logged(rig), *one.row == '\0' ? Lines{} : Lines{one.row});
  }
}

TEST(ReceptionLog, HearsWhatTheBc245xltHears) {
  const std::vector<HeardCase> cases = {
      {"MD00", "SB > SB A; PR > PRF; MA > NG", ""},
      {"MD00", "SB > SB A; PR > PRF; MA > C012 F01551150 TN DN LN AF RF N05; PC A > PC A012",
       "BC245XLT MD00 155.115 (Fire) 1/12"},
      {"MD02", "SQ > -", ""},
      {"MD02", "SQ > +; WI > WI x F01551150", "BC245XLT MD02 155.115 (Fire)"},
      // On hold the radio stays on a frequency even if nothing is received.
      {"MD03", "SQ > -; WI > WI x F01551150", ""},
      {"MD11",
       "IS > IS A; IC > IC B0 005678; PI B > PI B3; WI > WI x F08510125; AF > AFF; LO > LOF",
       "BC245XLT MD11 851.0125 id 5678 (Detectives) 2/10"},
      {"MD11", "IS > IS A; IC > NG", ""},
      {"MD15",
       "IDN > IDN; DL > DLN; IDN > IDN > ID S 005678; WI > WI020F08510125; AF > AFN; MD > MD00; LT "
       "> LTN; IDF > IDF",
       "BC245XLT MD15 851.0125 id 5678 (Detectives) 2/0"},
      {"MD13", "", ""},
  };
  for (const HeardCase& one : cases) {
    SCOPED_TRACE(std::string(one.mode) + " " + one.exchanges);
    test::Bc245Rig rig;
    rig.setPanel(false);
    rig.form.receiver.Option7.setValue(true);
    rig.poll(one.mode, one.exchanges);
    EXPECT_EQ(logged(rig), *one.row == '\0' ? Lines{} : Lines{one.row});
  }
}

/// A log with fakes around it.
struct LogRig : test::World {
  Heard heard{"MD00", 155115000, "", "Fire", 1, 12, 0, 2};
  /// Ticks every quarter of a second that hear something, or nothing.
  void hear(bool anything, int milliseconds) {
    for (int at = 0; at < milliseconds; at += 250) {
      receptions.tick(anything ? &heard : nullptr);
      clock.offsetMilliseconds += 250;
    }
  }
};

TEST(ReceptionLog, WritesAtTheEndAndEveryTenSecondsUntilThen) {
  LogRig rig;
  rig.hear(true, 25000);
  EXPECT_EQ(rig.receptionStore.writes, "w0 w0 ");
  EXPECT_EQ(rig.receptionStore.rows[0].seconds, 20);
  rig.hear(false, 3000);
  EXPECT_EQ(rig.receptionStore.writes, "w0 w0 w0! ");
  EXPECT_EQ(rig.receptionStore.rows[0].seconds, 24.75);
  rig.heard.frequency = 46012500;
  rig.hear(true, 500);
  rig.clock.offsetMilliseconds += ReceptionJoiner::kStill;
  rig.receptions.Timer1.fire();
  EXPECT_EQ(rig.receptionStore.writes, "w0 w0 w0! w1! ");
}

TEST(ReceptionLog, GivesARecordingToAllThatWasHeardInIt) {
  LogRig rig;
  rig.hear(true, 500);
  rig.receptions.recordingBegins();
  rig.heard.frequency = 46012500;
  rig.hear(true, 500);
  EXPECT_EQ(rig.receptionStore.writes, "w0 ");
  rig.hear(false, 500);
  rig.receptions.recordingEnds("Fire.wav");
  rig.heard.frequency = 118100000;
  rig.hear(true, 500);
  rig.receptions.stop();
  EXPECT_EQ(rig.receptionStore.writes, "w0 w0! w1! w2! ");
  EXPECT_EQ(rig.receptionStore.rows[0].recording, "Fire.wav");
  EXPECT_EQ(rig.receptionStore.rows[1].recording, "Fire.wav");
  EXPECT_EQ(rig.receptionStore.rows[2].recording, "");
}

TEST(ReceptionLog, CanBeSwitchedOff) {
  LogRig rig;
  rig.hear(true, 500);
  rig.receptions.chkKeep.userClick();
  rig.hear(true, 500);
  rig.receptions.stop();
  EXPECT_EQ(rig.receptionStore.writes, "w0! ");
  EXPECT_EQ(rig.settings.getSetting("ReceptionLog", "Keep", ""), "0");
  ReceptionLog next({rig.receptionStore, rig.state, rig.settings, rig.dialogs, rig.clock});
  EXPECT_FALSE(next.chkKeep.value());
}

TEST(ReceptionLog, ThinsAtTheStartWhatIsOlderThanIsKept) {
  constexpr std::int64_t kDay = 24LL * 60 * 60 * 1000;
  struct Case {
    const char* stored;
    int line;
    std::int64_t before;
  };
  for (const auto& [stored, line, before] :
       {Case{"30", 0, -30 * kDay}, Case{"365", 1, -365 * kDay}, Case{"", 1, -365 * kDay},
        Case{"0", 2, 0}, Case{"77", -1, 0}}) {
    SCOPED_TRACE(stored);
    test::World world;
    if (*stored != '\0') {
      world.settings.saveSetting("ReceptionLog", "KeepDays", stored);
    }
    world.receptionStore.thinnedBefore = 0;
    ReceptionLog log(
        {world.receptionStore, world.state, world.settings, world.dialogs, world.clock});
    EXPECT_EQ(log.cboKeepFor.listIndex(), line);
    EXPECT_EQ(world.receptionStore.thinnedBefore, before);
    log.cboKeepFor.userChoose(2);
    EXPECT_EQ(world.settings.getSetting("ReceptionLog", "KeepDays", ""), "0");
  }
}

}  // namespace
}  // namespace tarnvex::monitor
