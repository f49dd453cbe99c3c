#pragma once

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "shell/bc245_form.h"
#include "shell/bc895_form.h"
#include "support/world.h"

namespace tarnvex::test {

/// The radios' replies. The characters between the fields have no meaning.
inline constexpr const char* kBc245Identity = "SIBC245XLT 0024500172 V124";

/// The exchanges with which every tick of a BC895XLT begins.
inline std::vector<Exchange> opening(const std::string& mode,
                                     const std::string& signal = "S018 F01551150") {
  return script("SI > ERR; MU > MUA; SG > " + signal + "; MD > " + mode +
                "; LO > LOF; LL > LL 0290000; LU > LU 9560000");
}

/// The exchanges with which every tick of a BC245XLT begins.
inline std::vector<Exchange> opening245(const std::string& mode) {
  return script(
      "SI > " + std::string(kBc245Identity) +
      "; LL > LL 0290000; LU > LU 9560000; LO > LOF; PR > PRF; DL > DLF; LT > LTF; MD > " + mode);
}

/// A main window with a small plan, on an open line and with its poll on, before the first tick.
template <class Form>
struct PollRig : World {
  Form form{services, outside()};

  explicit PollRig(const char* modelKey) {
    state.ModelKey = modelKey;
    form.MSComm1->open();
    form.Scantimer.setEnabled(true);
    radio.log.clear();
    channel(12, "155.1150", "Fire");
    channel(31, "46.0125", "");
    // The trunked system of the second bank, and the slot of the first bank just before it.
    channel(45, "851.0125", "Control");
    talkgroup(100, "001234", "Before");
    talkgroup(150, "005678", "Patrol");
    talkgroup(160, "005678", "Detectives");
    talkgroup(170, "12-345", "Schools");
    talkgroup(180, "000123", "Buses");
    talkgroup(190, "01-03-", "Works");
    talkgroup(200, "000007", "");
    talkgroup(201, "005678", "Other bank");
  }

  void channel(int row, const std::string& frequency, const std::string& tag) {
    form.MSFlexGrid1.setTextMatrix(row, 0, std::to_string(row));
    form.MSFlexGrid1.setTextMatrix(row, 1, frequency);
    form.MSFlexGrid1.setTextMatrix(row, 7, tag);
  }
  void talkgroup(int row, const std::string& id, const std::string& tag) {
    form.MSFlexGrid2.setTextMatrix(row, 1, id);
    form.MSFlexGrid2.setTextMatrix(row, 2, tag);
  }
  /// Ticks the box and checks that nothing is sent.
  void tickSkip() {
    form.hitLists.chkSkip.onClick = nullptr;
    form.hitLists.chkSkip.setValue(true);
  }

  /// Runs one tick of the poll, with exactly these exchanges.
  void tick(const std::vector<Exchange>& exchanges) {
    radio.expect(exchanges);
    gate.enterTimer(form.Scantimer);
    radio.expectSpent();
  }

  /// Switches every drawn element on, as if an earlier mode had left it so, or off.
  void setPanel(bool lit) {
    auto& panel = form.panel;
    for (auto* text : {&panel.Frequency, &panel.Alpha, &panel.Channel}) {
      text->setCaption("");
    }
    if (lit) {
      panel.Frequency.setCaption("123.4567");
      panel.Alpha.setCaption("Old tag");
      panel.Channel.setCaption("99");
    }
    for (const platform::Label* element : panel.elements()) {
      if (isSwitched(element->name())) {
        const_cast<platform::Label*>(element)->setVisible(lit);
      }
    }
    setOwn(panel, lit);
  }

  /// Everything that the poll writes, as one text: the panel's texts in full and the names of its
  /// lit indicators, and after a slash what isn't visible.
  [[nodiscard]] std::string picture() const {
    std::string all;
    for (const std::string& line : monitor::describe(form.panel)) {
      const std::string name = line.substr(0, line.find(':'));
      static const std::set<std::string> kTexts = {"Frequency", "Alpha",   "Channel", "CTCSS",
                                                   "TrunkType", "Bankltr", "Sig"};
      const bool digits = name == "Bank" && !line.ends_with("BANK");
      if (name != "Knob" && !digits) {
        all += (all.empty() ? "" : ", ") + (kTexts.contains(name) ? line : name);
      }
    }
    return all + own(form.panel);
  }

 private:
  /// Whether the poll shows and hides an element.
  static bool isSwitched(const std::string& name) {
    static const std::set<std::string> kAlwaysVisible = {"Frequency", "Alpha", "Channel",
                                                         "TrunkType"};
    const bool digit = name.starts_with("Bank(") && name != "Bank(10)";
    return !kAlwaysVisible.contains(name) && !digit && name != "STEP" && !name.starts_with("Knob");
  }
  static void setOwn(monitor::PanelState& panel, bool lit) {
    panel.Frequency.setCaption(lit ? "123.4567" : "Initializing");
    panel.CTCSS.setCaption(lit ? "88.5" : "000.0");
  }
  static void setOwn(monitor::Bc245Panel& panel, bool lit) {
    panel.TrunkType.setCaption(lit ? "X" : "");
    panel.mode.setCaption(lit ? "MD04" : "FM");
    panel.light(lit);
  }
  static std::string own(const monitor::PanelState& panel) { return " / " + panel.CTCSS.caption(); }
  static std::string own(const monitor::Bc245Panel& panel) {
    const bool light = panel.Display.backColor() == panel.lighton.backColor();
    return std::string(light ? ", light" : "") + (panel.Channel.visible() ? "" : ", no channel");
  }
};

/// The rig of the BC895XLT.
struct Bc895Rig : PollRig<shell::Form4> {
  Bc895Rig() : PollRig("BC895") {}
  void poll(const std::string& mode, const std::string& transcript = "") {
    tick(opening(mode) + transcript);
  }
};

/// The rig of the BC245XLT.
struct Bc245Rig : PollRig<shell::Form2> {
  Bc245Rig() : PollRig("BC245") {
    // In another form than the poll's.
    channel(45, "851.0125 ", "Control");
  }
  void poll(const std::string& mode, const std::string& transcript = "") {
    tick(opening245(mode) + transcript);
  }
};

/// The parts of a picture, in no particular order.
inline std::multiset<std::string> parts(std::string picture) {
  std::multiset<std::string> all;
  for (std::size_t end = 0; end != std::string::npos;) {
    end = std::min(picture.find(", "), picture.find(" / "));
    all.insert(picture.substr(0, end));
    picture.erase(0, end == std::string::npos ? end : picture.find(' ', end + 1) + 1);
  }
  return all;
}

/// A mode's exchanges after the start of the tick, and the whole panel after it: once on a dark
/// panel, which shows what the mode lights, and once on a panel with everything lit, which shows
/// what it leaves.
struct ModeCase {
  std::string mode;
  std::string exchanges;
  std::string onDark;
  std::string onLit;
};

template <class Rig>
void expectModes(const std::vector<ModeCase>& cases) {
  for (const auto& [mode, exchanges, onDark, onLit] : cases) {
    for (const bool lit : {false, true}) {
      SCOPED_TRACE(mode + " " + exchanges);
      Rig rig;
      rig.setPanel(lit);
      rig.poll(mode, exchanges);
      EXPECT_EQ(parts(rig.picture()), parts(lit ? onLit : onDark));
      EXPECT_EQ(rig.form.panel.mode.caption(), mode);
      EXPECT_EQ(rig.form.customSearch.LLimit.text() + " " + rig.form.customSearch.Ulimit.text(),
                "29.0000 956.0000");
      EXPECT_TRUE(rig.form.Scantimer.enabled());
      EXPECT_EQ(rig.switches, 0);
    }
  }
}

/// What the display shows after a tick while the user is keying "42".
struct EntryCase {
  std::string mode;
  std::string exchanges;
  std::string alpha;
  std::string frequency = "42";
};

template <class Rig>
void expectEntries(const std::vector<EntryCase>& cases) {
  for (const auto& [mode, exchanges, alpha, frequency] : cases) {
    SCOPED_TRACE(mode + " " + exchanges);
    Rig rig;
    rig.setPanel(true);
    rig.form.panel.Frequency.setCaption("42");
    rig.state.EntryActive = true;
    rig.tickSkip();
    rig.poll(mode, exchanges);
    EXPECT_EQ(rig.form.panel.Frequency.caption(), frequency);
    EXPECT_EQ(rig.form.panel.Alpha.caption(), alpha);
  }
}

}  // namespace tarnvex::test
