#pragma once

#include <string>
#include <utility>
#include <vector>

#include "shell/bc895_form.h"
#include "support/world.h"

namespace tarnvex::test {

/// Replies as the radio words them. The characters between the fields are the radio's affair.
inline constexpr const char* kSignal155 = "S018 F01551150";
inline constexpr const char* kSignal851 = "S020 F08510125";

/// The questions with which every tick begins, and their answers.
inline std::vector<Exchange> opening(const std::string& mode,
                                     const std::string& signal = kSignal155) {
  return {{"SI", "ERR"}, {"MU", "MUA"},        {"SG", signal},      {"MD", mode},
          {"LO", "LOF"}, {"LL", "LL 0290000"}, {"LU", "LU 9560000"}};
}

/// The main window of a BC895XLT on an open line with its poll on, before the first tick.
struct Bc895Rig : World {
  shell::Form4 form{services, outside()};

  Bc895Rig() {
    form.MSComm1->open();
    form.Scantimer.setEnabled(true);
    radio.log.clear();
    channel(12, "155.1150", "Fire");
    channel(31, "46.0125", "");
    // The trunked system of the second bank, and a slot of the first bank just before it.
    channel(45, "851.0125", "Control");
    talkgroup(100, "001234", "Before");
    talkgroup(150, "005678", "Patrol");
    talkgroup(160, "005678", "Detectives");
    talkgroup(170, "12-345", "Schools");
    talkgroup(180, "000007", "");
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
    panel.Frequency.setCaption(lit ? "123.4567" : "Initializing");
    panel.Alpha.setCaption(lit ? "Old tag" : "");
    panel.Channel.setCaption(lit ? "99" : "P000");
    panel.CTCSS.setCaption(lit ? "88.5" : "000.0");
    for (auto* label : {&panel.CTCSS, &panel.Scan, &panel.Hold, &panel.Search, &panel.Trunk,
                        &panel.Wx, &panel.Auto, &panel.Priority, &panel.Delay, &panel.LO,
                        &panel.MHZ, &panel.CtcssStat, &panel.Bank, &panel.Alert, &panel.Line}) {
      label->setVisible(lit);
    }
    for (auto& letter : panel.Bankltr) {
      letter.setVisible(lit);
    }
    for (auto& bar : panel.Sig) {
      bar.setVisible(lit);
    }
  }

  /// All that the poll writes, as one text: the panel with its texts in full and its indicators by
  /// name, what is hidden on it behind a slash, and the limit boxes.
  [[nodiscard]] std::string picture() const {
    std::string all;
    for (const std::string& line : monitor::describe(form.panel)) {
      const std::string name = line.substr(0, line.find(':'));
      const bool text = name == "Frequency" || name == "Alpha" || name == "Channel" ||
                        name == "CTCSS" || name == "Bankltr" || name == "Sig";
      if (name != "Knob") {
        all += (all.empty() ? "" : ", ") + (text ? line : name);
      }
    }
    all += " / " + form.panel.CTCSS.caption() + " " + form.panel.mode.caption();
    return all + " " + form.LLimit.text() + "-" + form.Ulimit.text();
  }
};

}  // namespace tarnvex::test
