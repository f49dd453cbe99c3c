#pragma once

#include <string>
#include <utility>
#include <vector>

#include "shell/bc245_form.h"
#include "support/world.h"

namespace tarnvex::test {

/// Replies as the radio words them. The characters between the fields are the radio's affair.
inline constexpr const char* kBc245Identity = "SIBC245XLT 0024500172 V124";
inline constexpr const char* kWindow155 = "WI018F01551150";
inline constexpr const char* kWindow851 = "WI020F08510125";

/// The questions with which every tick of a BC245XLT begins, and their answers.
inline std::vector<Exchange> opening245(const std::string& mode) {
  return {{"SI", kBc245Identity}, {"LL", "LL 0290000"}, {"LU", "LU 9560000"}, {"LO", "LOF"},
          {"PR", "PRF"},          {"DL", "DLF"},        {"LT", "LTF"},        {"MD", mode}};
}

/// The main window of a BC245XLT on an open line with its poll on, before the first tick.
struct Bc245Rig : World {
  shell::Form2 form{services, outside()};

  Bc245Rig() {
    state.ModelKey = "BC245";
    form.MSComm1->open();
    form.Scantimer.setEnabled(true);
    radio.log.clear();
    channel(12, "155.1150", "Fire");
    channel(31, "46.0125", "");
    // The trunked system of the second bank, written otherwise than the poll writes it.
    channel(45, "851.0125 ", "Control");
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

  /// One tick of the poll, with exactly these exchanges.
  void tick(const std::vector<Exchange>& exchanges) {
    radio.expect(exchanges);
    gate.enterTimer(form.Scantimer);
    radio.expectSpent();
  }

  /// Switches everything that is drawn on or off. On: an earlier mode's leftovers in every element.
  void setPanel(bool lit) {
    auto& panel = form.panel;
    panel.Frequency.setCaption(lit ? "123.4567" : "");
    panel.Alpha.setCaption(lit ? "Old tag" : "");
    panel.Channel.setCaption(lit ? "99" : "");
    panel.TrunkType.setCaption(lit ? "X" : "");
    panel.mode.setCaption(lit ? "MD04" : "FM");
    for (auto* label : {&panel.Scan, &panel.Hold, &panel.Search, &panel.Trunk, &panel.LO,
                        &panel.Pri, &panel.Dly, &panel.Att, &panel.Police, &panel.Data,
                        &panel.Keylock, &panel.Bank[monitor::Bc245Panel::kBankWord]}) {
      label->setVisible(lit);
    }
    for (auto& mark : panel.Bankltr) {
      mark.setVisible(lit);
    }
    panel.light(lit);
  }

  /// All that the poll writes, as one text: the panel with its texts in full and its indicators by
  /// name.
  [[nodiscard]] std::string picture() const {
    std::string all;
    for (const std::string& line : monitor::describe(form.panel)) {
      const std::string name = line.substr(0, line.find(':'));
      if (name == "Bank") {
        all += line.ends_with("BANK") ? ", Bank" : "";
        continue;
      }
      const bool text = name == "Frequency" || name == "Alpha" || name == "Channel" ||
                        name == "TrunkType" || name == "Bankltr";
      all += (all.empty() ? "" : ", ") + (text ? line : name);
    }
    const auto& panel = form.panel;
    all += panel.Display.backColor() == panel.lighton.backColor() ? ", light" : "";
    return all + (panel.Channel.visible() ? "" : ", no channel");
  }
};

}  // namespace tarnvex::test
