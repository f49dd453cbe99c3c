#pragma once

#include "link/scanner_commands.h"
#include "memory/channel_transfer.h"

namespace tarnvex::memory {

/// "Download Conventional Data": reads the channels of the chosen banks out of the radio into the
/// plan, by way of the table's cursor. Tags stay with their channel numbers.
///
/// After silence the remaining rows are emptied of all but tone and tag; the plan then counts as
/// changed, and not saving it is the user's way back.
class frmDownload : public ChannelTransfer {
 public:
  frmDownload(MainWindow mainWindow, const TransferOutside& outside);

 protected:
  void prepareRadio(const TransferWindow& main) override;
  void enterBank(const TransferWindow& main, bool selected) override;
  void transferChannel(Transfer& transfer, int bank, int channel) override;

 private:
  static void fillRow(platform::Table& grid, int channel, const link::ChannelReply& reply);
};

}  // namespace tarnvex::memory
