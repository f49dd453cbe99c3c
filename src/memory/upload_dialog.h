#pragma once

#include <functional>
#include <string_view>

#include "memory/channel_transfer.h"

namespace tarnvex::memory {

/// "Upload Conventional Data": writes the channels of the chosen banks into the radio, one command
/// for each field; empty channels too, so that the radio's are emptied. Tags stay on the PC. Tones
/// can be set, but not taken away. The radio stands on channel 1 afterwards.
///
/// A channel with the `Trunk` flag is keyed into its trunked bank. Where the radio wants to know
/// the system type of such a bank, the user is asked for it once a bank.
class frmUpload : public ChannelTransfer {
 public:
  /// Asks the user for the system type of the bank that the radio is in and programs the bank with
  /// it. Returns when the dialog has closed or the program has ended.
  using AskSystemType = std::function<void()>;

  frmUpload(MainWindow mainWindow, const TransferOutside& outside, AskSystemType askSystemType);

 protected:
  void enterBank(const TransferWindow& main, bool selected) override;
  void transferChannel(Transfer& transfer, int bank, int channel) override;
  void releaseRadio() override;

 private:
  bool enterTrunkedBank(Transfer& transfer, int bank);
  void keyTrunkedBank(const TransferWindow& main, int bank);
  bool learnSystemType(Transfer& transfer);
  void sendFlags(const TransferWindow& main, int channel);
  void sendTone(std::string_view tone);

  AskSystemType askSystemType_;
};

}  // namespace tarnvex::memory
