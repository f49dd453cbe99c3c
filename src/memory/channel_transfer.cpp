#include "memory/channel_transfer.h"

#include <utility>

#include "link/scanner_commands.h"
#include "memory/plan_records.h"

namespace tarnvex::memory {
namespace {

constexpr int kBankSize = bankRow(1) - bankRow(0);

/// "A (1 to 30)" to "J (271 to 300)", with letters for both radios.
std::vector<std::string> letteredBanks(int count) {
  std::vector<std::string> banks;
  banks.reserve(static_cast<std::size_t>(count));
  for (int bank = 0; bank < count; ++bank) {
    banks.push_back(std::string(1, link::bankLetter(bank)) + " (" + bankRange(bank) + ")");
  }
  return banks;
}

}  // namespace

ChannelTransfer::ChannelTransfer(Words words, MainWindow mainWindow, const TransferOutside& outside)
    : BankDialog(std::move(words), letteredBanks(kBanks), kBankSize, std::move(mainWindow),
                 outside) {}

BankDialog::Outcome ChannelTransfer::transferBanks(Transfer& transfer) {
  if (!transfer.letOthersRun()) {
    return Outcome::Ended;
  }
  for (int bank = 0; bank < kBanks; ++bank) {
    const bool selected = List1.selected(bank);
    enterBank(transfer.main, selected);
    if (selected && !transferBank(transfer, bank)) {
      return Outcome::Ended;
    }
  }
  return Outcome::Done;
}

bool ChannelTransfer::transferBank(Transfer& transfer, int bank) {
  for (int channel = bankRow(bank); channel < bankRow(bank + 1); ++channel) {
    transferChannel(transfer, bank, channel);
    if (outside_.gate.ended()) {
      return false;
    }
    progress.advance();
  }
  return true;
}

bool ChannelTransfer::showChannel(Transfer& transfer, int channel) {
  transfer.main.Channel.setCaption(std::to_string(channel));
  return transfer.letOthersRun();
}

}  // namespace tarnvex::memory
