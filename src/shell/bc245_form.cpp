#include "shell/bc245_form.h"

#include <algorithm>

#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::shell {
namespace {

constexpr link::LinkTraits kLinkTraits{"BC245", 2400};

}  // namespace

Form2::Form2(const Services& services, MainFormOutside outside)
    : MainForm(services, outside, memory::bc245MemoryTraits()),
      switchScanner_(outside.switchScanner),
      link_(
          kLinkTraits,
          {*MSComm1, Scantimer, {&Option1, &Option2, &Option3, &Option4}, Combo1, Combo4, Command3},
          {services.state, services.settings, services.dialogs}) {
  panel.Frequency.setCaption("888.8888");
  setUpBankBoxes(Combo4, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"});
  Combo1.setItems({"2400", "4800", "9600", "19200"});
  Option5.setEnabled(false);
  Scantimer.onTick = [this] { tick(); };
  services_.link.attachBc245({MSComm1.get(), &Scantimer});
}

Form2::~Form2() {
  services_.link.detach(*MSComm1);
  services_.gate.forget(Scantimer);
}

void Form2::load() {
  if (const auto beep =
          platform::toInteger(services_.settings.getSetting("Options", "Keybeep", "1"))) {
    chkKeyBeep.setValue(*beep != 0);
  }
  frequencyFile_.loadLastPlan();
  memory_.layOut();
  showStoredBaudRate();
  for (auto* combo : {&Combo4, &Combo2, &Combo3}) {
    combo->setListIndex(0);
  }
  link_.chooseStoredPort();
  link_.openStoredPort();
  Scantimer.setEnabled(true);
  services_.gate.yield();
  SSTab1.setTab(2);
}

void Form2::showStoredBaudRate() {
  const auto& rates = Combo1.items();
  const auto rate = std::ranges::find(rates, link_.storedBaudRate());
  if (rate != rates.end()) {
    Combo1.setListIndex(static_cast<int>(rate - rates.begin()));
  }
}

void Form2::tick() {
  const std::string reply = services_.link.SendCommand(link::command::kIdentify);
  if (!link::IdentityReply(reply).isError()) {
    takeIdentity(reply);
    return;
  }
  services_.state.ModelKey = "BC895";
  services_.state.ScannerName = "BC895XLT";
  switchScanner_();
}

/// The poll reads the texts one place apart from the splash, and its values stand from then on.
void Form2::takeIdentity(const std::string& reply) {
  auto& state = services_.state;
  state.ScannerName = platform::mid(reply, 3, 9);
  state.ModelKey = "BC245";
  state.SerialNumberText = platform::mid(reply, 13, 10);
  if (const auto firmware = platform::toReal(link::IdentityReply(reply).firmware())) {
    state.FirmwareText = platform::shortest(*firmware / 100);
  }
  state.SwitchingScanners = false;
}

}  // namespace tarnvex::shell
