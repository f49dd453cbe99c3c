#include "shell/main_form.h"

#include "link/scanner_commands.h"

namespace tarnvex::shell {

MainForm::MainForm(const Services& services, MainFormOutside outside)
    : window(monitor::mainTitle({})),
      MSComm1(services.ports.create()),
      services_(services),
      outside_(std::move(outside)) {
  bindCommonControls();
}

void MainForm::bindCommonControls() {
  chkKeyBeep.onClick = [this] {
    services_.settings.saveSetting("Options", "Keybeep", chkKeyBeep.value() ? "1" : "0");
  };
  Check6.onClick = [this] {
    services_.link.SendCommand(Check6.value() ? link::command::kMuteOn : link::command::kMuteOff);
  };
  Command1.onClick = [this] { List1.clear(); };
  Command2.onClick = [this] { List2.clear(); };
  chkSkip.onClick = [this] {
    if (chkSkip.value()) {
      services_.link.SendCommand(link::key::kSearch);
    }
  };
}

void MainForm::requestUnload() {
  // A second request while the question stands adds nothing.
  if (asking_) {
    return;
  }
  if (!services_.state.SwitchingScanners) {
    asking_ = true;
    const auto answer =
        services_.dialogs.messageBox("Exit Tarnvex?", "Confirm Exit", platform::kYesNoQuestion);
    asking_ = false;
    if (answer != platform::Answer::Yes) {
      return;
    }
  }
  unload();
}

void MainForm::unload() {
  MSComm1->close();
  if (!services_.state.SwitchingScanners) {
    outside_.endProgram();
  }
}

monitor::PollControls MainForm::pollControls() {
  return {window, MSFlexGrid1, MSFlexGrid2, LLimit, Ulimit, Check6, chkSkip, List1, List2};
}

monitor::PollOutside MainForm::pollOutside() {
  return {services_.link,  services_.gate,         services_.state,
          services_.clock, outside_.switchScanner, [] { return std::string(); }};
}

std::vector<std::string> MainForm::letters() {
  std::vector<std::string> names;
  for (int bank = 0; bank < 10; ++bank) {
    names.emplace_back(1, link::bankLetter(bank));
  }
  return names;
}

}  // namespace tarnvex::shell
