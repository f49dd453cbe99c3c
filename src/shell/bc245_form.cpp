#include "shell/bc245_form.h"

#include <algorithm>

#include "link/scanner_commands.h"
#include "platform/convert.h"
#include "trunking/bc245_id_transfer.h"
#include "trunking/fleet_map_form.h"

namespace tarnvex::shell {

Form2::Form2(const Services& services, MainFormOutside outside)
    : MainForm(services, std::move(outside), link::bc245Model()),
      speed_({Option5, Option6, MSBank, Timer2},
             {panel, services.link, services.state, services.settings}),
      keypad_(panel, Option8, keypadOutside()),
      customSearch_(model_, searchParts(panel.mode), searchOutside()),
      receiver_(
          {Check1, Check2, Check3, Check4, Check5, Check6, Check7, Option7, Option8, panel.Att},
          services.link, services.settings),
      poll_(panel, pollControls(), pollOutside(), {Scantimer, *MSComm1, Check2, Check5, Option8}),
      link_(
          model_,
          {*MSComm1, Scantimer, {&Option1, &Option2, &Option3, &Option4}, Combo1, Combo4, Command3},
          {services.state, services.settings, services.dialogs}) {
  setUpBankBoxes(Combo4);
  Combo1.setItems(model_.baudRates);
  // Speed Enhancement can't be on while no bank is ticked.
  Option5.setEnabled(false);
  Scantimer.onTick = [this] { poll_.tick(); };
  platform::passKeysOn({&Check1, &Check2, &Check3, &Check4, &Check5, &Check6, &Check7, &chkKeyBeep,
                        &chkRecord, &chkSkip, &Command4, &Option7, &Option8});
  for (auto& box : MSBank) {
    box.passKeysOn();
  }
  services_.link.attachBc245({MSComm1.get(), &Scantimer});
}

Form2::~Form2() {
  services_.link.detach(*MSComm1);
  services_.gate.forget(Scantimer);
  services_.gate.forget(Timer2);
}

void Form2::load() {
  customSearch_.load();
  receiver_.loadView();
  if (const auto beep =
          platform::toInteger(services_.settings.getSetting("Options", "Keybeep", "1"))) {
    chkKeyBeep.setValue(*beep != 0);
  }
  speed_.loadBanks();
  frequencyFile_.loadLastPlan();
  memory_.layOut();
  showStoredBaudRate();
  for (auto* combo : {&Combo4, &Combo2, &Combo3}) {
    combo->setListIndex(0);
  }
  link_.chooseStoredPort();
  link_.openStoredPort();
  receiver_.readSwitches();
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
  const auto& rates = Combo1.items();
  const auto rate = std::ranges::find(rates, link_.storedBaudRate());
  if (rate != rates.end()) {
    Combo1.setListIndex(static_cast<int>(rate - rates.begin()));
  }
}

}  // namespace tarnvex::shell
