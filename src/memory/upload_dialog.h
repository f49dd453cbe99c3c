#pragma once

#include <functional>
#include <string_view>

#include "memory/bank_list.h"
#include "trunking/system_type_form.h"

namespace tarnvex::memory {

/// "Upload Conventional Data": writes the channels of the chosen banks into the radio, one command
/// for each field; empty channels too, so that the radio's are emptied. Tags stay on the PC. Tones
/// can be set, but not taken away. The radio stands on channel 1 afterwards.
///
/// A channel with the `Trunk` flag is keyed into its trunked bank. Where the radio wants to know
/// the system type of such a bank, `Form3` asks for it once a bank.
class frmUpload : public ChannelTransfer {
 public:
  /// Shows the loaded form modally: returns once it has told `closed` or the program has ended.
  using ShowForm3 = std::function<void(trunking::Form3&)>;

  frmUpload(MainWindow mainWindow, TransferOutside outside, ShowForm3 showForm3);

 protected:
  void enterBank(const TransferWindow& main, bool selected) override;
  void transferChannel(const TransferWindow& main, int bank, int channel) override;
  void releaseRadio() override;

 private:
  bool enterTrunkedBank(const TransferWindow& main, int bank);
  void keyTrunkedBank(const TransferWindow& main, int bank);
  bool askSystemType(const TransferWindow& main);
  void sendFlags(const TransferWindow& main, int channel);
  void sendTone(std::string_view tone);

  ShowForm3 showForm3_;
};

}  // namespace tarnvex::memory
