#pragma once

#include <functional>
#include <string_view>

#include "memory/channel_transfer.h"

namespace tarnvex::memory {

/// "Upload Conventional Data": writes the channels of the chosen banks into the radio, with one
/// command for each field. Empty channels are sent too, which clears them in the radio. Tags stay
/// on the PC. Tones can be set but not removed. At the end the radio is on channel 1.
///
/// A channel with the `Trunk` flag is keyed into its trunked bank. If the radio needs to know the
/// system type of that bank, the user is asked once per bank.
class frmUpload : public ChannelTransfer {
 public:
  /// Asks the user for the system type of the bank that the radio is in and sends it to the radio.
  /// Returns when the dialog has closed or the program has ended.
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
