// From the drawn keys, the keyboard and the controls of a real window to the wire.
#include <QTabBar>
#include <QTest>
#include <map>

#include "desktop/panel/radio_panel.h"
#include "desktop/window_fixture.h"

namespace tarnvex::test {
namespace {

struct Sent {
  const char* left = "";
  const char* right = "";
};

/// What each key sends, by its caption. The hand-held's keys send a second line end.
const std::map<QString, Sent> kDeskSetKeys = {{"STEP", {"KEY15"}},
                                              {"AUX", {"KEY16"}},
                                              {"DIM", {"KEY14"}},
                                              {"WX", {"KEY10"}},
                                              {"RMT", {}},
                                              {"SEND", {"KEY18"}},
                                              {"AUTO", {"KEY19"}},
                                              {"HOLD", {"KEY07", "KEY07H"}},
                                              {"LIMIT", {"KEY08", "KEY08H"}},
                                              {"SRC", {"KEY09"}},
                                              {"SCAN", {"KEY00"}},
                                              {"MANUAL", {"KEY01"}},
                                              {"DATA", {"KEY11"}},
                                              {"PRI", {"KEY05", "KEY05H"}},
                                              {"TRUNK", {"KEY13", "KEY13H"}},
                                              {"E ", {"KEY04"}},
                                              {"L/O", {"KEY06", "KEY06H"}},
                                              {"DELAY", {"KEY12", "KEY12H"}},
                                              {".", {"KEY03"}},
                                              {"FREQ  CHAN", {}},
                                              {"CTCSS", {"KEY20", "KEY20H"}},
                                              {"1", {"KEY02 1"}},
                                              {"2", {"KEY02 2"}},
                                              {"3", {"KEY02 3"}},
                                              {"4", {"KEY02 4"}},
                                              {"5", {"KEY02 5"}},
                                              {"6", {"KEY02 6"}},
                                              {"7", {"KEY02 7"}},
                                              {"8", {"KEY02 8"}},
                                              {"9", {"KEY02 9"}},
                                              {"0", {"KEY02 0"}},
                                              {"A", {"KEY21 A"}},
                                              {"B", {"KEY21 B"}},
                                              {"C", {"KEY21 C"}},
                                              {"D", {"KEY21 D"}},
                                              {"E", {"KEY21 E"}},
                                              {"F", {"KEY21 F"}},
                                              {"G", {"KEY21 G"}},
                                              {"H", {"KEY21 H"}},
                                              {"I", {"KEY21 I"}},
                                              {"J", {"KEY21 J"}}};
const std::map<QString, Sent> kHandheldKeys = {{"", {"KEY14\r", "KEY14H\r"}},
                                               {"  SCAN", {"KEY00\r"}},
                                               {" MAN", {"KEY01\r"}},
                                               {" TRNK", {"KEY13\r", "KEY13H\r"}},
                                               {"    SVC", {"KEY10\r"}},
                                               {"     PRI", {"KEY05\r", "KEY05H\r"}},
                                               {"   LIMIT", {"KEY08\r"}},
                                               {" SRCH", {"KEY09\r"}},
                                               {"   HOLD", {"KEY07\r"}},
                                               {"  DLY", {"KEY12\r"}},
                                               {"   L/O", {"KEY06\r", "KEY06H"}},
                                               {" DATA", {"KEY11\r"}},
                                               {"E", {"KEY04\r"}},
                                               {".", {"KEY03\r; AT"}},
                                               {"1", {"KEY02 1\r"}},
                                               {"2", {"KEY02 2\r"}},
                                               {"3", {"KEY02 3\r"}},
                                               {"4", {"KEY02 4\r"}},
                                               {"5", {"KEY02 5\r"}},
                                               {"6", {"KEY02 6\r"}},
                                               {"7", {"KEY02 7\r"}},
                                               {"8", {"KEY02 8\r"}},
                                               {"9", {"KEY02 9\r"}},
                                               {"0", {"KEY02 0\r"}}};

/// What typed characters send to both radios.
std::map<char, std::string> typedKeys() {
  std::map<char, std::string> keys = {
      {'P', "KEY05H"}, {'L', "KEY06H"}, {'T', "KEY13H"}, {'s', "KEY00"},
      {'m', "KEY01"},  {'.', "KEY03"},  {'\r', "KEY04"}, {'p', "KEY05"},
      {'l', "KEY06"},  {'h', "KEY07"},  {'i', "KEY08"},  {'r', "KEY09"},
      {'w', "KEY10"},  {'d', "KEY12"},  {'t', "KEY13"},  {'c', "KEY20"}};
  for (char digit = '0'; digit <= '9'; ++digit) {
    keys[digit] = std::string("KEY02 ") + digit;
  }
  return keys;
}

/// A main window with a radio in manual mode.
template <class Form>
class KeysOf : public WindowTest<Form> {
 protected:
  KeysOf() {
    this->form.Scantimer.setEnabled(false);
    this->state.CurrentMode = "MD01";
    this->state.ModelKey = std::is_same_v<Form, shell::Form4> ? "BC895" : "BC245";
    this->form.panel.mode.setCaption("MD01");
    this->radio.log.clear();
  }

  void clickEveryKey(const std::map<QString, Sent>& expected) {
    auto& panel = this->template find<desktop::RadioPanel>("panel");
    const auto& keys = panel.layoutData().keys;
    ASSERT_EQ(static_cast<std::size_t>(keys.size()), expected.size());
    for (int i = 0; i < keys.size(); ++i) {
      SCOPED_TRACE(keys[i].caption.toStdString());
      const auto sent = expected.find(keys[i].caption);
      ASSERT_NE(sent, expected.end());
      for (const auto& [button, command] :
           {std::pair{Qt::LeftButton, sent->second.left}, {Qt::RightButton, sent->second.right}}) {
        if (keys[i].caption == "RMT" && button == Qt::LeftButton) {
          this->dialogs.answers = {platform::Answer::No};
        }
        QTest::mouseClick(&panel, button, {}, panel.keyRect(i).center());
        EXPECT_EQ(this->radio.takeLog(), command);
      }
    }
    EXPECT_TRUE(this->window.isVisible());
    for (const platform::Label* element : this->form.panel.elements()) {
      const QString name = QString::fromStdString(element->name());
      EXPECT_TRUE(name.startsWith("Knob") || !panel.elementRect(name).isEmpty()) << element->name();
    }
  }

  void typeEveryKey(const std::map<char, std::string>& expected) {
    auto* tabs = this->template find<QTabWidget>("SSTab1").tabBar();
    for (int character = ' '; character <= '~'; ++character) {
      SCOPED_TRACE(static_cast<char>(character));
      QTest::keyClick(tabs, static_cast<char>(character));
      const auto sent = expected.find(static_cast<char>(character));
      EXPECT_EQ(this->radio.takeLog(), sent == expected.end() ? "" : sent->second);
    }
    QTest::keyClick(tabs, Qt::Key_Enter);
    EXPECT_EQ(this->radio.takeLog(), expected.at('\r'));
  }

  /// Types into every control that can have the focus, and checks which of them pass their keys on
  /// to the radio.
  void typeIntoEveryControl(const QStringList& forwarding) {
    QStringList found;
    for (QWidget* widget : this->window.template findChildren<QWidget*>()) {
      const QString name = widget->objectName();
      const bool partOfTabs = qobject_cast<QTabBar*>(widget->parentWidget()) != nullptr;
      if (name.isEmpty() || name.startsWith("qt_") || partOfTabs ||
          widget->focusPolicy() == Qt::NoFocus) {
        continue;
      }
      QTest::keyClick(widget, 'm');
      const std::string sent = this->radio.takeLog();
      EXPECT_TRUE(sent.empty() || sent == "KEY01") << name.toStdString() << ": " << sent;
      const QString plain = name.section('(', 0, 0);
      if (!sent.empty() && !found.contains(plain)) {
        found << plain;
      }
      EXPECT_EQ(!sent.empty(), forwarding.contains(plain)) << name.toStdString();
    }
    EXPECT_EQ(found.size(), forwarding.size()) << found.join(' ').toStdString();
  }
};

using Bc895Keys = KeysOf<shell::Form4>;
using Bc245Keys = KeysOf<shell::Form2>;

TEST_F(Bc895Keys, EveryDrawnKeyReachesTheWire) {
  clickEveryKey(kDeskSetKeys);
  EXPECT_EQ(dialogs.takeBoxes(), (std::vector<Box>{{"Exit Tarnvex?", "Confirm Exit", 36}}));
}

TEST_F(Bc245Keys, EveryDrawnKeyReachesTheWire) {
  clickEveryKey(kHandheldKeys);
}

TEST_F(Bc895Keys, EveryTypedKeyReachesTheWire) {
  auto keys = typedKeys();
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    keys[letter] = std::string("KEY21 ") + letter;
  }
  typeEveryKey(keys);
}

TEST_F(Bc245Keys, EveryTypedKeyReachesTheWire) {
  typeEveryKey(typedKeys());
}

TEST_F(Bc895Keys, TheRightControlsLeaveTheirKeysToTheRadio) {
  typeIntoEveryControl({"panel", "Combo1", "Combo2", "Combo3", "Command1", "Command2", "Command3",
                        "List1", "List2", "List3", "MSBank", "Option1", "Option2", "Option3",
                        "Option4", "Option5", "Option6"});
}

TEST_F(Bc245Keys, TheRightControlsLeaveTheirKeysToTheRadio) {
  typeIntoEveryControl({"panel",    "Check1",   "Check2",     "Check3",    "Check4",  "Check5",
                        "Check6",   "Check7",   "chkKeyBeep", "chkRecord", "chkSkip", "Command2",
                        "Command3", "Command4", "MSBank",     "Option1",   "Option2", "Option3",
                        "Option4",  "Option5",  "Option6",    "Option7",   "Option8"});
}

}  // namespace
}  // namespace tarnvex::test
