#pragma once

#include "link/scanner_commands.h"
#include "memory/channel_transfer.h"

namespace tarnvex::memory {

/// "Download Conventional Data": reads the channels of the chosen banks from the radio into the
/// plan, moving the table's cursor along. Tags stay with their channel numbers. The plan is kept as
/// a backup first, and all banks are one step of undo.
///
/// Deliberate: if the radio falls silent, the remaining rows lose everything except tone and tag.
class frmDownload : public ChannelTransfer {
 public:
  frmDownload(MainWindow mainWindow, const TransferOutside& outside);

 protected:
  Outcome transferBanks(Transfer& transfer) override;
  void prepareRadio(const TransferWindow& main) override;
  void enterBank(const TransferWindow& main, bool selected) override;
  void transferChannel(Transfer& transfer, int bank, int channel) override;

 private:
  static void fillRow(platform::Table& grid, int channel, const link::ChannelReply& reply);
};

}  // namespace tarnvex::memory
