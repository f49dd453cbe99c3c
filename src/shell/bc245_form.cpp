#include "shell/bc245_form.h"

#include <algorithm>

#include "link/scanner_commands.h"
#include "trunking/bc245_id_transfer.h"
#include "trunking/fleet_map_form.h"

namespace tarnvex::shell {

Form2::Form2(const Services& services, MainFormOutside outside)
    : MainForm(services, std::move(outside), link::bc245Model()),
      speed({panel, services_.link, services_.gate, services_.state, services_.settings}),
      receiver(Check6, panel.Att, services_.link, services_.settings),
      keypad_(panel, receiver.Option8, keypadOutside()),
      poll_(panel, pollOutside(), receiver, Scantimer, *MSComm1) {
  Scantimer.onTick = [this] { poll_.tick(); };
  platform::passKeysOn(
      {&keyBeep.chkKeyBeep, &recording.chkRecord, &hitLists.chkSkip, &customSearch.Command4});
  services_.link.attachBc245({MSComm1.get(), &Scantimer});
}

void Form2::load() {
  customSearch.load();
  receiver.loadView();
  keyBeep.load();
  speed.loadBanks();
  frequencyFile_.loadLastPlan();
  memory_.layOut();
  showStoredBaudRate();
  chooseFirstBanks();
  linkControls.chooseStoredPort();
  linkControls.openStoredPort();
  receiver.readSwitches();
  Scantimer.setEnabled(true);
  services_.gate.yield();
  SSTab1.setTab(2);
}

void Form2::mnuUploadTrunk() {
  showDialog<trunking::frmUploadtrs>([this] { return transferWindow(); }, transferOutside());
}

void Form2::mnuOwnloadTrunk() {
  showDialog<trunking::frmDownloadtrs>([this] { return transferWindow(); }, transferOutside());
}

void Form2::mnuCustom() {
  showDialog<trunking::Form5>(services_.link, services_.dialogs);
}

std::shared_ptr<QuickViewForm> Form2::openQuickView(WindowLayer& windows) {
  const auto form = std::make_shared<Form9>(panel, services_.settings);
  windows.openQuickView(*form);
  return form;
}

void Form2::showStoredBaudRate() {
  const auto& rates = linkControls.baudBox.items();
  const auto rate = std::ranges::find(rates, linkControls.storedBaudRate());
  if (rate != rates.end()) {
    linkControls.baudBox.setListIndex(static_cast<int>(rate - rates.begin()));
  }
}

}  // namespace tarnvex::shell
