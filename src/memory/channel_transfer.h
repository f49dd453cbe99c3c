#pragma once

#include "memory/bank_dialog.h"

namespace tarnvex::memory {

/// Base of the dialogs that transfer the channels of whole banks between plan and radio, one
/// channel at a time. Meanwhile the poll is stopped and the panel shows the current channel.
/// Replies aren't checked: a radio that falls silent is reported once by the link, and the rest of
/// the transfer runs on a closed port.
class ChannelTransfer : public BankDialog {
 protected:
  ChannelTransfer(Words words, MainWindow mainWindow, const TransferOutside& outside);

  /// Called for every bank in turn, before its channels.
  virtual void enterBank(const TransferWindow& main, bool selected) = 0;
  /// Transfers a channel (1 to 300) of a selected bank (0 to 9). Calls `showChannel` once.
  virtual void transferChannel(Transfer& transfer, int bank, int channel) = 0;

  /// Shows the channel on the panel and lets other handlers run. False if the program has ended.
  static bool showChannel(Transfer& transfer, int channel);

  Outcome transferBanks(Transfer& transfer) override;

 private:
  bool transferBank(Transfer& transfer, int bank);
};

}  // namespace tarnvex::memory
