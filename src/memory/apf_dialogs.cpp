#include "memory/apf_dialogs.h"

#include <utility>

namespace tarnvex::memory {

ApfForm::ApfForm(ApfPorts ports, std::string name, std::string caption, std::string label,
                 std::string action)
    : window(std::move(name), std::move(caption)),
      Label1("Label1", std::move(label)),
      Command3("Command3", std::move(action)),
      CommonDialog1(ports.CommonDialog1),
      ports_(ports) {
  CommonDialog1.DialogTitle = "Select APF File";
  CommonDialog1.Filter = "APF Files (*.apf)|*.apf";
  CommonDialog1.KeepCaption = "Keep";
  Text1.setText("1");
  Command3.setEnabled(false);
  Text1.allowOnly("0123456789");
  Text1.onKey = [this](char key) {
    const bool passes = Text1.takesKey(key);
    if (!passes) {
      dialogs().beep();
    }
    return passes;
  };
  Command2.onClick = [this] {
    List1.selectAll();
    List1.setListIndex(0);
  };
  Command4.onClick = [this] { closed.notify(); };
}

}  // namespace tarnvex::memory
