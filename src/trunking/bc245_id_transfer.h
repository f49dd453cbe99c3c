#pragma once

#include <optional>
#include <string>

#include "memory/bank_dialog.h"

namespace tarnvex::trunking {

/// Base of the dialogs that transfer talkgroup IDs on a BC245XLT: all hundred IDs of each chosen
/// bank. The radio must be trunking in a bank before the bank's IDs can be read or written, so it
/// is sent to one bank after the other. At the end its own choice of banks is restored.
class Bc245IdTransfer : public memory::BankDialog {
 protected:
  Bc245IdTransfer(Words words, MainWindow mainWindow, const memory::TransferOutside& outside);

  /// Called for each chosen bank in turn, before its IDs.
  virtual void enterBank() {}
  /// Transfers an ID. False if the user aborts.
  virtual bool transferSlot(const memory::TransferWindow& main, int row, int group, int slot) = 0;
  Outcome transferBanks(memory::Transfer& transfer) override;

 private:
  void releaseRadio() override;
  Outcome transferBank(memory::Transfer& transfer, int bank);
  Outcome transferSlots(memory::Transfer& transfer, int bank);
  /// Sends the radio to a bank. Returns whether it is trunking there, or nothing if the program has
  /// ended.
  std::optional<bool> startTrunking(memory::Transfer& transfer, int bank);
  Outcome passOver(memory::Transfer& transfer, int bank);

  /// The radio's answer about its choice of banks. Sent as a command, it restores that choice.
  std::string choice_;
};

/// "Upload Trunked Data". Shows each ID that the radio refuses; the user may then abort.
class frmUploadtrs : public Bc245IdTransfer {
 public:
  frmUploadtrs(MainWindow mainWindow, const memory::TransferOutside& outside);

 protected:
  bool transferSlot(const memory::TransferWindow& main, int row, int group, int slot) override;

 private:
  bool goesOnAfterRefusal(const std::string& id);
};

/// "Download Trunked Data". Stores an empty slot in the form in which the radio sends it. The plan
/// is kept as a backup first, and all banks are one step of undo.
class frmDownloadtrs : public Bc245IdTransfer {
 public:
  frmDownloadtrs(MainWindow mainWindow, const memory::TransferOutside& outside);

  [[nodiscard]] platform::CheckBox* option() override { return &Check1; }
  platform::CheckBox Check1{"Check1",
                            "Tarnvex should clear Alpha tags for ID's written to this bank."};

 protected:
  Outcome transferBanks(memory::Transfer& transfer) override;
  void enterBank() override { outside_.state.MemoryModified = true; }
  bool transferSlot(const memory::TransferWindow& main, int row, int group, int slot) override;
};

}  // namespace tarnvex::trunking
