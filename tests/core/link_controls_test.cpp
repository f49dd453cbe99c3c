#include "link/link_controls.h"

#include <gmock/gmock.h>

#include "shell/bc245_form.h"
#include "shell/bc895_form.h"
#include "support/world.h"

namespace tarnvex::link {
namespace {

using platform::Answer;
using test::Box;
using test::Piece;
using test::SavedSetting;
using testing::ElementsAre;
using testing::IsEmpty;

const Box kConfirm{
    "This setting should only be changed if you are unable to connect to your scanner. The setting "
    "should match the baudrate of your scanner. Do you wish to continue?",
    "Confirm Baud Rate Change", 36};
const Box kRestored{
    "Your scanner is not responding. Your previous settings will be restored. If you are having "
    "problems connecting your scanner, you should determine it's baudrate per the instructions in "
    "your scanner's users manual.",
    "Scanner Not Responding", 48};

/// One of the main windows, with its link controls as after a start on COM 1 at 9600 baud.
struct Window : test::World {
  explicit Window(bool bc895) {
    if (bc895) {
      form = std::make_unique<shell::Form4>(services, outside());
    } else {
      form = std::make_unique<shell::Form2>(services, outside());
      form->trunkBank.setListIndex(0);
    }
    baud = &form->linkControls.baudBox;
    section = bc895 ? "BC895" : "BC245";
    state.ModelKey = section;
    baud->setListIndex(bc895 ? 1 : 2);
    form->MSComm1->open();
    form->Scantimer.setEnabled(true);
    radio.log.clear();
  }
  platform::OptionButton& option(int slot) {
    return *form->linkControls.options[static_cast<std::size_t>(slot - 1)];
  }
  void chooseBaud(const std::string& rate) {
    const auto& rates = baud->items();
    baud->userChoose(static_cast<int>(std::find(rates.begin(), rates.end(), rate) - rates.begin()));
  }

  std::unique_ptr<shell::MainForm> form;
  platform::ComboBox* baud = nullptr;
  std::string section;
};

class LinkControlsTest : public testing::TestWithParam<bool>, public Window {
 public:
  LinkControlsTest() : Window(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Windows, LinkControlsTest, testing::Values(true, false),
                         [](const auto& info) { return info.param ? "Form4" : "Form2"; });

TEST_P(LinkControlsTest, ComOptionsReopenThePortAndRemember) {
  for (const int slot : {3, 3, 4, 2, 1}) {
    form->Scantimer.setEnabled(false);
    option(slot).userClick();
    EXPECT_EQ(radio.takeLog(), "close; open COM " + std::to_string(slot) + " at 9600,n,8,1");
    EXPECT_TRUE(option(slot).value() && form->Scantimer.enabled());
    EXPECT_THAT(settings.saved, ElementsAre(SavedSetting{"Options", "COM", std::to_string(slot)}));
    settings.saved.clear();
  }
  EXPECT_THAT(dialogs.boxes, IsEmpty());
}

TEST_P(LinkControlsTest, ComOptionsReportAPortThatWillNotOpen) {
  radio.refusals[2] = "Permission denied";
  for (const bool polling : {true, false}) {
    form->Scantimer.setEnabled(polling);
    option(2).userClick();
    EXPECT_THAT(dialogs.takeBoxes(),
                ElementsAre(Box{"A communications error has occurred: Permission denied",
                                "COM Selection error", 48}));
    EXPECT_THAT(settings.saved, IsEmpty());
    EXPECT_EQ(form->Scantimer.enabled(), polling) << "left as it was";
    EXPECT_FALSE(form->MSComm1->portOpen());
  }
  radio.takeLog();
  radio.refusals.clear();
  option(2).userClick();
  EXPECT_EQ(radio.takeLog(), "open COM 2 at 9600,n,8,1") << "the user tries again";
}

TEST_P(LinkControlsTest, ConnectReopensInAnyState) {
  form->linkControls.Command3.userClick();
  EXPECT_EQ(radio.takeLog(), "close; open COM 1 at 9600,n,8,1");
  EXPECT_TRUE(form->Scantimer.enabled());
  radio.expect(test::script("SI"));
  link.SendCommand("SI");
  EXPECT_FALSE(form->Scantimer.enabled() || form->MSComm1->portOpen());
  dialogs.boxes.clear();
  form->linkControls.Command3.userClick();
  EXPECT_TRUE(form->Scantimer.enabled() && form->MSComm1->portOpen());
  radio.refusals[1] = "No such device";
  form->linkControls.Command3.userClick();
  EXPECT_TRUE(form->Scantimer.enabled()) << "silently: the poll goes on with empty replies";
  EXPECT_THAT(dialogs.boxes, IsEmpty());
  EXPECT_THAT(settings.saved, IsEmpty());
}

TEST_P(LinkControlsTest, BaudBoxDoesNothingWhileThePollIsStopped) {
  form->Scantimer.setEnabled(false);
  chooseBaud("4800");
  EXPECT_THAT(dialogs.boxes, IsEmpty());
  EXPECT_EQ(radio.takeLog(), "");
}

TEST_P(LinkControlsTest, BaudChangeDeclinedLeavesTheLink) {
  dialogs.answers = {Answer::No};
  dialogs.whileOpen = [&] { EXPECT_FALSE(form->Scantimer.enabled()); };
  chooseBaud("4800");
  EXPECT_THAT(dialogs.takeBoxes(), ElementsAre(kConfirm));
  EXPECT_EQ(radio.takeLog(), "");
  EXPECT_THAT(settings.saved, IsEmpty());
  EXPECT_TRUE(form->Scantimer.enabled());
}

TEST_P(LinkControlsTest, BaudChangeIsKeptForAnyAnswerInTime) {
  dialogs.answers = {Answer::Yes};
  dialogs.whileOpen = [&] { EXPECT_FALSE(form->Scantimer.enabled()); };
  radio.expect({{"TEST", std::vector<Piece>{{"ERR\r", 12500}}}});
  chooseBaud("4800");
  EXPECT_EQ(radio.takeLog(), "close; open COM 1 at 4800,n,8,1; TEST");
  EXPECT_THAT(settings.saved, ElementsAre(SavedSetting{section, "Baudrate", "4800"}));
  EXPECT_THAT(dialogs.takeBoxes(), ElementsAre(kConfirm));
  EXPECT_TRUE(form->Scantimer.enabled());
  EXPECT_EQ(baud->text(), "4800");
  radio.expect({{"SI", "FER"}});
  EXPECT_EQ(link.SendCommand("SI"), "FER") << "the next exchange discards that answer";
}

TEST_P(LinkControlsTest, BaudChangeIsTakenBackAfterSilence) {
  settings.values[{section, "Baudrate"}] = "9600";
  dialogs.answers = {Answer::Yes};
  radio.expect({{"TEST", std::vector<Piece>{{"ERR\r", 12501}}}});
  chooseBaud("4800");
  EXPECT_EQ(radio.takeLog(),
            "close; open COM 1 at 4800,n,8,1; TEST; close; open COM 1 at 9600,n,8,1");
  EXPECT_THAT(settings.saved, ElementsAre(SavedSetting{section, "Baudrate", "4800"},
                                          SavedSetting{section, "Baudrate", "9600"}));
  EXPECT_THAT(dialogs.takeBoxes(), ElementsAre(kConfirm, kRestored));
  EXPECT_EQ((section == "BC895" ? *baud : form->trunkBank).listIndex(), section == "BC895" ? 1 : 3);
  EXPECT_TRUE(form->Scantimer.enabled());
  EXPECT_TRUE(state.LinkWaiting);
}

/// The windows differ in the box that shows the restored rate, and in the step.
TEST(BaudRestored, ShowsInTheBaudBoxOrMovesTheBankSelector) {
  const std::tuple<bool, const char*, int, int, int> cases[] = {
      {true, "9600", 1, -1, 1},   {true, "4800", 0, -1, 1},   {true, "2400", 0, -1, 1},
      {true, "19200", 0, -1, 1},  {true, "fast", 0, -1, 1},   {false, "2400", 1, 0, 1},
      {false, "4800", 1, 1, 101}, {false, "9600", 1, 3, 301}, {false, "19200", 1, 7, 701},
      {false, "fast", 1, 0, 1}};
  for (const auto& [bc895, stored, baudIndex, bankIndex, row] : cases) {
    SCOPED_TRACE(std::string(bc895 ? "Form4 " : "Form2 ") + stored);
    Window window(bc895);
    window.settings.values[{window.section, "Baudrate"}] = stored;
    window.dialogs.answers = {Answer::No};
    window.chooseBaud("4800");
    EXPECT_EQ(window.baud->listIndex(), baudIndex);
    const auto& banks = window.form->trunkBank;
    EXPECT_EQ(banks.listIndex(), bankIndex);
    EXPECT_EQ(window.form->MSFlexGrid2.row(), row);
    EXPECT_EQ(window.dialogs.boxes.size(), 1U) << "the box's own click does nothing";
  }
}

}  // namespace
}  // namespace tarnvex::link
