#include "shell/main_form.h"

#include <algorithm>

#include "link/scanner_commands.h"
#include "memory/apf_dialogs.h"
#include "memory/download_dialog.h"
#include "memory/scanner_reset.h"
#include "memory/upload_dialog.h"
#include "shell/about_form.h"
#include "shell/reception_log_form.h"
#include "trunking/system_type_form.h"

namespace tarnvex::shell {

MainForm::MainForm(const Services& services, MainFormOutside outside, const link::RadioModel& model)
    : guard_(services),
      window(std::string(model.mainWindow), memory::mainTitle({})),
      Dlg1(services.makeDialog()),
      backupDialog(services.makeDialog()),
      trunkBank(std::string(model.trunkBankBox), model.bankNames),
      Combo2("Combo2", model.bankNames),
      Combo3("Combo3", model.bankNames),
      linkState(std::string(model.key) + "XLT", services.clock),
      MSComm1(std::make_unique<link::WatchedPort>(services.makePort(), linkState)),
      heardRows({services.receptions, linkState, MSFlexGrid2, model.convertsIds}),
      MMControl1(services.makeMediaControl()),
      services_(guard_.services()),
      model_(model),
      memory_({MSFlexGrid1, MSFlexGrid2, SSTab1}, services.state, services_.dialogs, model,
              [&link = services.link](const std::string& command) { link.SendCommand(command); }),
      frequencyFile_(memory_, {guard_.files(), *Dlg1, services_.dialogs, services_.settings, window,
                               services_.backups, *backupDialog}),
      // A baud rate that was just given up is stored even if the window has gone meanwhile.
      linkControls(model, trunkBank,
                   {*MSComm1, Scantimer, services.state, services.settings, services_.dialogs}),
      keyBeep(services_.settings, services_.dialogs),
      recording({*MMControl1, services.state, services.gate, services_.dialogs, services.clock,
                 services.receptions, services.programDirectory}),
      Check6("Check6", "Speaker Mute", link::kMuteSwitch, services.link),
      customSearch(model, {services.link, services.state, guard_.files(), services_.dialogs,
                           services.programDirectory,
                           [this](std::string mode) { front().mode.setCaption(std::move(mode)); }}),
      hitLists(memory_, services.link),
      outside_(std::move(outside)),
      dialogHost_(services.gate, outside_.windows) {
  setUpBankBoxes();
}

MainForm::~MainForm() {
  services_.link.detach(*MSComm1);
  services_.gate.forget(Scantimer);
}

void MainForm::requestUnload() {
  // A second request while the question is open does nothing.
  if (asking_) {
    return;
  }
  asking_ = true;
  const auto answer =
      services_.dialogs.messageBox("Exit Tarnvex?", "Confirm Exit", platform::kYesNoQuestion);
  asking_ = false;
  if (answer != platform::Answer::Yes) {
    return;
  }
  // The flag is still set just after a switch of the windows, but it is meant for the window that
  // was replaced. If it stayed set, this window would unload without ending the program.
  services_.state.SwitchingScanners = false;
  unload();
}

void MainForm::unload() {
  // From here on the window is closing: a request while the next question is open does nothing,
  // either.
  asking_ = true;
  // Drops queued clicks and closes the dialogs.
  services_.gate.dropUserEvents();
  dialogHost_.leave();
  // A late click must not open the port again.
  linkControls.disable();
  closeQuickView();
  // The poll must not exchange the windows while the question is open.
  Scantimer.setEnabled(false);
  frequencyFile_.offerToSaveAtExit();
  leave();
  MSComm1->close();
  releaseSound();
  recording.leave();
  services_.receptions.stop();
  if (!services_.state.SwitchingScanners) {
    outside_.endProgram();
  }
}

/// Handlers of this window may still be on the stack, each waiting in a dialog. From now on they
/// can't ask, read or write anything.
void MainForm::leave() {
  guard_.leave();
  Dlg1->withdraw();
  backupDialog->withdraw();
}

void MainForm::onPlan(void (memory::FrequencyFile::*command)()) {
  if (!asking_) {
    (frequencyFile_.*command)();
  }
}

/// Shows a form of the APF exchange together with its file dialog.
template <class Form>
void MainForm::showApf() {
  struct Kept {
    std::unique_ptr<platform::CommonDialog> dialog;
    Form form;
  };
  dialogHost_.show<Form>(
      [this] {
        auto dialog = services_.makeDialog();
        platform::CommonDialog& shown = *dialog;
        const std::shared_ptr<Kept> kept(
            new Kept{std::move(dialog), Form({guard_.files(), shown, memory_})});
        return std::shared_ptr<Form>(kept, &kept->form);
      },
      model_.modalDialogs, [](Form& form) { form.load(); });
}

void MainForm::mnuImport() {
  showApf<memory::Form7>();
}

void MainForm::mnuExport() {
  showApf<memory::Form8>();
}

void MainForm::mnuUpload() {
  showDialog<memory::frmUpload>([this] { return transferWindow(); }, transferOutside(),
                                [this] { askSystemType(); });
}

void MainForm::askSystemType() {
  trunking::Form3 form({front().Channel, MSFlexGrid1, services_.state, services_.link,
                        services_.gate, services_.dialogs});
  form.load();
  dialogHost_.showAndWait(form);
}

void MainForm::mnuDownload() {
  showDialog<memory::frmDownload>([this] { return transferWindow(); }, transferOutside());
}

void MainForm::mnuReset() {
  if (services_.state.TransferRunning) {
    services_.dialogs.beep();
    return;
  }
  memory::resetScanner(services_.dialogs, services_.link);
}

void MainForm::mnuReceptions() {
  dialogHost_.show<frmReceptionLog>(
      [this] {
        return std::make_shared<frmReceptionLog>(services_.receptions, memory_, services_.dialogs);
      },
      false);
}

void MainForm::mnuAbout() {
  showDialog<frmAbout>(services_.state);
}

void MainForm::mnuQV() {
  if (quickView_ || asking_) {
    return;
  }
  quickView_ = openQuickView(outside_.windows);
  quickViewClosed_ = quickView_->closed.connect([this] { closeQuickView(); });
  outside_.windows.showMain(false);
}

/// Also called when the main window closes, since the small window shows its labels.
void MainForm::closeQuickView() {
  if (!quickView_) {
    return;
  }
  quickView_->unload();
  outside_.windows.showMain(true);
  outside_.windows.closeQuickView();
  services_.gate.whenIdle([kept = std::move(quickView_)] {});
}

void MainForm::showLockouts() {
  auto* form = dialogHost_.show<search::frmLockouts>(
      [this] {
        return std::make_shared<search::frmLockouts>(model_, front().mode, services_.link);
      },
      false);
  if (form != nullptr) {
    form->load();
  }
}

memory::TransferOutside MainForm::transferOutside() {
  return {services_.state, services_.link, services_.gate, services_.dialogs, services_.clock};
}

memory::TransferWindow MainForm::transferWindow() {
  return {model_,
          MSFlexGrid1,
          MSFlexGrid2,
          front().Frequency,
          front().Channel,
          front().mode,
          Scantimer,
          memory_.history(),
          [this] { frequencyFile_.keepPlan(); }};
}

monitor::PollOutside MainForm::pollOutside() {
  return {services_.link,
          services_.gate,
          services_.state,
          services_.clock,
          outside_.switchScanner,
          [this] { return Dlg1->FileName; },
          recording,
          heardRows,
          hitLists,
          customSearch,
          window,
          MSFlexGrid1,
          MSFlexGrid2,
          Check6};
}

monitor::KeypadOutside MainForm::keypadOutside() {
  return {services_.link, services_.state, keyBeep, [this] { showLockouts(); }};
}

void MainForm::setUpBankBoxes() {
  Combo3.onClick = [this] { memory_.JumpToBank(MSFlexGrid1, Combo3.listIndex()); };
  const auto jump = [this] {
    memory_.JumpToBank(MSFlexGrid2, std::max(trunkBank.listIndex(), 0),
                       std::max(Combo2.listIndex(), 0));
  };
  trunkBank.onClick = jump;
  Combo2.onClick = jump;
}

void MainForm::chooseFirstBanks() {
  for (platform::ComboBox* box : {&trunkBank, &Combo2, &Combo3}) {
    box->setListIndex(0);
  }
}

}  // namespace tarnvex::shell
