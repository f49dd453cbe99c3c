#include "memory/download_dialog.h"

#include <string>
#include <utility>

#include "link/tone_table.h"
#include "memory/plan_records.h"

namespace tarnvex::memory {

frmDownload::frmDownload(MainWindow mainWindow, const TransferOutside& outside)
    : ChannelTransfer({"frmDownload", "Download Conventional Data", "Select Bank(s) to Download",
                       "Download Now", "Downloading..."},
                      std::move(mainWindow), outside) {}

BankDialog::Outcome frmDownload::transferBanks(Transfer& transfer) {
  const auto step = transfer.main.history.step("Download");
  const bool kept = selectedBanks() == 0 || transfer.keepPlan();
  return kept ? ChannelTransfer::transferBanks(transfer) : Outcome::Ended;
}

void frmDownload::prepareRadio(const TransferWindow& main) {
  // Deliberate: the same two codes for both radios, although they mean different modes. So a
  // BC245XLT leaves trunk programming here, but not its ID modes.
  const std::string& mode = main.mode.caption();
  if (mode == link::mode895::kIdSearch || mode == link::mode895::kIdHold) {
    outside_.link.SendCommand(link::key::kManual);
  }
}

void frmDownload::enterBank(const TransferWindow& /*main*/, bool selected) {
  if (selected) {
    outside_.state.MemoryModified = true;
  }
}

void frmDownload::transferChannel(Transfer& transfer, int /*bank*/, int channel) {
  const link::ChannelReply reply(outside_.link.SendCommand(link::command::readChannel(channel)));
  if (!outside_.gate.ended() && showChannel(transfer, channel)) {
    fillRow(transfer.main.MSFlexGrid1, channel, reply);
  }
}

void frmDownload::fillRow(platform::Table& grid, int channel, const link::ChannelReply& reply) {
  const auto flag = [](bool set) { return std::string(set ? "X" : " "); };
  grid.setRow(channel);
  const auto write = [&](ChannelRecord::Column column, std::string text) {
    grid.setCol(column);
    grid.setText(std::move(text));
  };
  write(ChannelRecord::Frequency, reply.shownFrequency());
  write(ChannelRecord::Trunk, flag(reply.trunked()));
  write(ChannelRecord::Delay, flag(reply.delay()));
  write(ChannelRecord::Lockout, flag(reply.lockout()));
  write(ChannelRecord::Line, flag(reply.line()));
  grid.setCol(ChannelRecord::Ctcss);
  // A tone code that isn't a number, or isn't in the table, leaves the cell as it was.
  if (const std::string* tone = link::toneText(reply.tone())) {
    grid.setText(*tone);
  }
}

}  // namespace tarnvex::memory
