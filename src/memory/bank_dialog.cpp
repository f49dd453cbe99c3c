#include "memory/bank_dialog.h"

#include <utility>

namespace tarnvex::memory {

BankDialog::BankDialog(Words words, const std::vector<std::string>& banks, int stepsPerBank,
                       MainWindow mainWindow, const TransferOutside& outside)
    : window(words.name, words.caption),
      Label1("Label1", words.label),
      Command1("Command1", words.action),
      outside_(outside),
      status_(std::move(words.status)),
      stepsPerBank_(stepsPerBank),
      mainWindow_(std::move(mainWindow)) {
  List1.addAll(banks);
  Command1.onClick = [this] { transfer(); };
  Command2.onClick = [this] { closed.notify(); };
  Command3.onClick = [this] { List1.selectAll(); };
}

void BankDialog::transfer() {
  Transfer transfer(mainWindow_(), outside_);
  if (!transfer.granted()) {
    return;
  }
  disableControls();
  prepareRadio(transfer.main);
  if (outside_.gate.ended()) {
    return;
  }
  transfer.showHourglass();
  transfer.begin(status_);
  progress.start(selectedBanks() * stepsPerBank_);
  const Outcome outcome = transferBanks(transfer);
  if (outcome == Outcome::Ended) {
    return;
  }
  if (outcome == Outcome::Aborted) {
    closed.notify();
  }
  transfer.showArrow();
  releaseRadio();
  if (transfer.end() && outcome == Outcome::Done) {
    closed.notify();
  }
}

void BankDialog::disableControls() {
  using Controls = std::initializer_list<platform::Control*>;
  for (platform::Control* control : Controls{&List1, &Command1, &Command2, &Command3}) {
    control->setEnabled(false);
  }
  if (platform::CheckBox* box = option()) {
    box->setEnabled(false);
  }
}

int BankDialog::selectedBanks() const {
  int selected = 0;
  for (int bank = 0; bank < List1.count(); ++bank) {
    selected += List1.selected(bank) ? 1 : 0;
  }
  return selected;
}

}  // namespace tarnvex::memory
