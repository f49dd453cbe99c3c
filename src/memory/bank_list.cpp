#include "memory/bank_list.h"

#include <utility>

#include "link/scanner_commands.h"
#include "memory/plan_records.h"

namespace tarnvex::memory {
namespace {

constexpr int kBankSize = bankRow(1) - bankRow(0);

/// "A (1 to 30)" to "J (271 to 300)", with letters for both radios.
std::vector<std::string> channelBanks(int count) {
  std::vector<std::string> banks;
  for (int bank = 0; bank < count; ++bank) {
    banks.push_back(std::string(1, link::bankLetter(bank)) + " (" + std::to_string(bankRow(bank)) +
                    " to " + std::to_string(bankRow(bank + 1) - 1) + ")");
  }
  return banks;
}

}  // namespace

void Progress::start(int total) {
  done_ = 0;
  total_ = total;
  changed.notify();
}

void Progress::advance(int steps) {
  done_ += steps;
  changed.notify();
}

BankDialog::BankDialog(const Words& words, const std::vector<std::string>& banks)
    : name(words.name), window(words.caption), Label1(words.label), Command1(words.action) {
  for (const auto& bank : banks) {
    List1.add(bank);
  }
  Command2.onClick = [this] { closed.notify(); };
  Command3.onClick = [this] { List1.selectAll(); };
}

void BankDialog::disableControls() {
  for (platform::Control* control :
       {static_cast<platform::Control*>(&List1), static_cast<platform::Control*>(&Command1),
        static_cast<platform::Control*>(&Command2), static_cast<platform::Control*>(&Command3)}) {
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

ChannelTransfer::ChannelTransfer(const Words& words, MainWindow mainWindow, TransferOutside outside)
    : BankDialog(words, channelBanks(kBanks)),
      outside_(outside),
      mainWindow_(std::move(mainWindow)),
      status_(words.status) {
  Command1.onClick = [this] { transfer(); };
}

void ChannelTransfer::transfer() {
  const TransferTurn turn(outside_.state);
  if (!turn.granted()) {
    outside_.dialogs.beep();
    return;
  }
  disableControls();
  const TransferWindow main = mainWindow_();
  prepareRadio(main);
  if (outside_.gate.ended()) {
    return;
  }
  outside_.dialogs.setBusyPointer(true);
  main.Scantimer.setEnabled(false);
  main.Frequency.setCaption(status_);
  progress.start(selectedBanks() * kBankSize);
  if (!letOthersRun(main) || !transferBanks(main)) {
    return;
  }
  outside_.dialogs.setBusyPointer(false);
  releaseRadio();
  if (outside_.gate.ended()) {
    return;
  }
  main.Scantimer.setEnabled(true);
  closed.notify();
}

bool ChannelTransfer::transferBanks(const TransferWindow& main) {
  for (int bank = 0; bank < kBanks; ++bank) {
    const bool selected = List1.selected(bank);
    enterBank(main, selected);
    if (!selected) {
      continue;
    }
    for (int channel = bankRow(bank); channel < bankRow(bank + 1); ++channel) {
      transferChannel(main, bank, channel);
      if (outside_.gate.ended()) {
        return false;
      }
      progress.advance();
    }
  }
  return true;
}

bool ChannelTransfer::showChannel(const TransferWindow& main, int channel) {
  main.Channel.setCaption(std::to_string(channel));
  return letOthersRun(main);
}

bool ChannelTransfer::letOthersRun(const TransferWindow& main) {
  outside_.gate.yield();
  return holdPoll(main);
}

bool ChannelTransfer::holdPoll(const TransferWindow& main) {
  if (outside_.gate.ended()) {
    return false;
  }
  // A COM option or Connect has started it again.
  main.Scantimer.setEnabled(false);
  return true;
}

}  // namespace tarnvex::memory
