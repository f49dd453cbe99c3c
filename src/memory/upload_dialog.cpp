#include "memory/upload_dialog.h"

#include <string>
#include <utility>

#include "link/scanner_commands.h"
#include "link/tone_table.h"
#include "memory/plan_records.h"
#include "platform/convert.h"

namespace tarnvex::memory {

frmUpload::frmUpload(MainWindow mainWindow, const TransferOutside& outside,
                     AskSystemType askSystemType)
    : ChannelTransfer({"frmUpload", "Upload Conventional Data", "Select Bank(s) to Upload",
                       "Upload Now", "Uploading..."},
                      std::move(mainWindow), outside),
      askSystemType_(std::move(askSystemType)) {}

void frmUpload::enterBank(const TransferWindow& main, bool /*selected*/) {
  if (main.model.asksSystemType) {
    outside_.state.DigitKeyed = false;
  }
}

void frmUpload::transferChannel(Transfer& transfer, int bank, int channel) {
  if (!showChannel(transfer, channel)) {
    return;
  }
  const TransferWindow& main = transfer.main;
  const bool trunked = main.MSFlexGrid1.textMatrix(channel, ChannelRecord::Trunk) == "X";
  if (trunked && !enterTrunkedBank(transfer, bank)) {
    return;
  }
  // Deliberate: if the cell isn't a number, no frequency is sent, but the other fields are. The
  // channel keeps its old frequency in the radio.
  if (const auto megahertz =
          platform::toReal(main.MSFlexGrid1.textMatrix(channel, ChannelRecord::Frequency))) {
    outside_.link.SendCommand(link::command::writeChannel(channel, *megahertz));
  }
  if (trunked) {
    outside_.link.SendCommand(link::key::kTrunk);
  }
  outside_.link.SendCommand(link::command::selectChannel(channel));
  sendFlags(main, channel);
  sendTone(std::string(main.MSFlexGrid1.textMatrix(channel, ChannelRecord::Ctcss)));
}

bool frmUpload::enterTrunkedBank(Transfer& transfer, int bank) {
  keyTrunkedBank(transfer.main, bank);
  if (!transfer.main.model.asksSystemType || outside_.state.DigitKeyed) {
    return true;
  }
  if (!learnSystemType(transfer)) {
    return false;
  }
  // Setting the type has taken the radio out of the bank.
  keyTrunkedBank(transfer.main, bank);
  outside_.state.DigitKeyed = true;
  return true;
}

void frmUpload::keyTrunkedBank(const TransferWindow& main, int bank) {
  outside_.link.SendCommand(link::key::kTrunkHeld);
  outside_.link.SendCommand(main.model.bankKey(bank));
  outside_.link.SendCommand(link::key::kEnter);
}

bool frmUpload::learnSystemType(Transfer& transfer) {
  if (outside_.gate.ended()) {
    return false;
  }
  askSystemType_();
  return transfer.keepPollStopped();
}

void frmUpload::sendFlags(const TransferWindow& main, int channel) {
  struct Flag {
    ChannelRecord::Column column;
    const link::Switch& command;
  };
  // Deliberate: the line flag is sent to both radios, even the one whose table hides it.
  for (const auto& [column, command] : {Flag{ChannelRecord::Delay, link::kDelaySwitch},
                                        Flag{ChannelRecord::Lockout, link::kLockoutSwitch},
                                        Flag{ChannelRecord::Line, link::kLineSwitch}}) {
    const bool set = main.MSFlexGrid1.textMatrix(channel, column) == "X";
    outside_.link.SendCommand(command.form(set));
  }
}

void frmUpload::sendTone(std::string_view tone) {
  const auto& tones = link::ToneTable();
  for (std::size_t index = 1; index < tones.size(); ++index) {
    if (!tone.empty() && tone == tones[index]) {
      outside_.link.SendCommand(link::command::setTone(static_cast<int>(index)));
    }
  }
}

void frmUpload::releaseRadio() {
  outside_.link.SendCommand(link::command::selectChannel(1));
}

}  // namespace tarnvex::memory
