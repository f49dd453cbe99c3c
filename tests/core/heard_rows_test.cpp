// The rows of the plan that the main window marks, in the radios' modes and after the line's end.
#include "poll_rig.h"

namespace tarnvex::monitor {
namespace {

using test::Bc245Rig;
using test::Bc895Rig;

/// The exchanges of a tick, and the rows that it marks in the channel and the talkgroup table, one
/// pair for each change.
struct Case {
  std::string mode;
  std::string exchanges;
  std::string marked;
  std::string signal = "S018 F01551150";
};

template <class Form>
class Marks {
 public:
  explicit Marks(const Form& form)
      : kept_(form.heardRows.changed.connect([this, &form] {
          list += (list.empty() ? "" : " ") + std::to_string(form.heardRows.channel()) + "/" +
                  std::to_string(form.heardRows.talkgroup());
        })) {}

  std::string list;

 private:
  platform::Connection kept_;
};

const std::string kChannel = "MA > C012 F01551150 TF DF LF AF RF N05; PC A > PC A012";
const std::string kVoice = "; SG > S020 F08510125; LO > LOF";

TEST(HeardRows, AreThoseOfTheModeOfABc895xlt) {
  const std::string manual = "CT > CTF; PR > PRF; " + kChannel;
  const std::string scan = "IS > IS B; DL > DLF; IC > ";
  const std::string hold = "IC > IC B0 005678; DL > DLF; IC > IC B0 005678; SG > S0";
  for (const auto& [mode, exchanges, marked, signal] : std::vector<Case>{
           {"MD00", "CT > CTF; SB > SB A; PR > PRF; " + kChannel, "12/0"},
           {"MD00", "CT > CTF; SB > SB A; PR > PRF; MA > NG", ""},
           {"MD01", manual, "12/0"},
           {"MD01", manual, "", "S000 F01551150"},
           {"MD02", "SQ > +; SG > S018 F01551150", ""},
           // Slot 10 of the bank's sixth group isn't channel 10.
           {"MD09", scan + "IC B0 005678" + kVoice, "0/160"},
           {"MD09", scan + "IC B0 009999" + kVoice, ""},
           {"MD09", scan + "IC B0 005678; SG > S020 F08520125; LO > LOF", ""},
           {"MD10", hold + "20 F08510125; LO > LOF", "0/160"},
           {"MD10", hold + "00 F08510125; LO > LOF", "", "S000 F08510125"},
           // The loop's end is followed by a tick that hears nothing.
           {"MD08", "IDN > OK > IDNS 005678; SG > S020 F08510125; MD > MD00; IDF > OK",
            "0/160 0/0"},
       }) {
    SCOPED_TRACE(mode + " " + exchanges);
    Bc895Rig rig;
    const Marks marks(rig.form);
    rig.tick(test::opening(mode, signal) + exchanges);
    EXPECT_EQ(marks.list, marked);
  }
}

TEST(HeardRows, AreThoseOfTheModeOfABc245xlt) {
  const std::string rest = "; WI > WI020F08510125; AF > ";
  for (const auto& [mode, exchanges, marked, signal] : std::vector<Case>{
           {"MD00", "SB > SB A; PR > PRF; " + kChannel, "12/0"},
           {"MD11", "SB > SB B; IC > IC B0 005678; PI B > NG" + rest + "AFF; LO > LOF", "0/160"},
           // The plan has the whole fleet, in the other form.
           {"MD17", "SB > SB B; IC > IC B9 000152; PI B > NG" + rest + "AFN; LO > LOF", "0/190"},
       }) {
    SCOPED_TRACE(mode + " " + exchanges);
    Bc245Rig rig;
    const Marks marks(rig.form);
    rig.poll(mode, exchanges);
    EXPECT_EQ(marks.list, marked);
  }
}

TEST(HeardRows, EndWithTheReceptionAndWithTheLine) {
  const std::string scan = "CT > CTF; SB > SB A; PR > PRF; ";
  Bc895Rig rig;
  const Marks marks(rig.form);
  rig.poll("MD00", scan + kChannel);
  rig.poll("MD00", scan + kChannel);
  rig.poll("MD00", scan + "MA > NG");
  EXPECT_EQ(marks.list, "12/0 0/0");
  // The log's setting changes nothing.
  rig.receptions.chkKeep.setValue(false);
  rig.poll("MD00", scan + kChannel);
  rig.form.MSComm1->close();
  EXPECT_EQ(marks.list, "12/0 0/0 12/0 0/0");
}

}  // namespace
}  // namespace tarnvex::monitor
