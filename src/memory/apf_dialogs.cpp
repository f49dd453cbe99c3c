#include "memory/apf_dialogs.h"

#include <utility>

#include "platform/convert.h"

namespace tarnvex::memory {

std::string ApfRecord::listed() const {
  return platform::format(at(Frequency), "0.0000") + " " + at(AlphaTag);
}

ApfForm::ApfForm(ApfPorts ports, std::string name, std::string caption, std::string label,
                 std::string action)
    : window(std::move(name), std::move(caption)),
      Label1("Label1", std::move(label)),
      Command3("Command3", std::move(action)),
      CommonDialog1(ports.CommonDialog1),
      ports_(std::move(ports)) {
  CommonDialog1.DialogTitle = "Select APF File";
  CommonDialog1.Filter = "APF Files (*.apf)|*.apf";
  Text1.setText("1");
  Command3.setEnabled(false);
  Text1.onKey = [this](char key) { return passes(key); };
  Command2.onClick = [this] {
    List1.selectAll();
    List1.setListIndex(0);
  };
  Command4.onClick = [this] { closed.notify(); };
}

bool ApfForm::passes(char key) {
  constexpr char kBackspace = 8;
  const bool passes = platform::isDigit(key) || key == kBackspace;
  if (!passes) {
    ports_.dialogs.beep();
  }
  return passes;
}

}  // namespace tarnvex::memory
