#pragma once

#include <functional>
#include <optional>
#include <string>

#include "memory/bank_list.h"
#include "memory/transfer_window.h"

/// The talkgroup IDs of the plan, to the radio and back. The two radios have little in common here:
/// a BC895XLT takes IDs at its keys, into the one bank that it trunks; a BC245XLT takes them in a
/// command, and is sent to each bank in turn.
///
/// The poll stands still meanwhile. Replies aren't verified but where it is said; a radio that
/// falls silent is reported once by the link, and the transfer then runs out on a closed port. If
/// the program ends in the middle, all stays as it is. One transfer runs at a time.
namespace tarnvex::trunking {

/// The bank (0 to 9) that a BC895XLT trunks: that of the channel that holds the frequency which it
/// receives. Nothing if no channel of the plan does.
std::optional<int> TrunkBankResolver(link::ScannerLink& link, const platform::Table& MSFlexGrid1);

/// Upload and download on a BC895XLT, which has no dialog for them: the five groups A to E of the
/// bank that the radio trunks at that moment. It must be in a mode that works on IDs. Nobody else
/// runs meanwhile, so that no key comes between those that are typed; a close request, Connect or a
/// COM option ends the transfer at the next slot.
class Bc895IdTransfer {
 public:
  Bc895IdTransfer(const memory::TransferWindow& main, const memory::TransferOutside& outside)
      : main_(main), outside_(outside) {}

  /// Types all 50 IDs on the radio's keys. What the radio refuses isn't seen.
  void upload();
  /// Reads all 50 IDs. The plan counts as changed even where the download is refused.
  void download();

  /// Of the transfer that runs, if one does.
  memory::Progress progress;

 private:
  [[nodiscard]] bool mayBegin(const memory::TransferTurn& turn);
  /// Shows the status and stops the poll.
  void begin(const char* status);
  /// Moves the IDs of the bank in use and starts the poll. False if there was none to move.
  bool transferBank(void (Bc895IdTransfer::*transferSlot)(int row, int group, int slot));
  void typeId(int row, int group, int slot);
  void readId(int row, int group, int slot);

  memory::TransferWindow main_;
  memory::TransferOutside outside_;
};

/// A transfer on a BC245XLT: all hundred IDs of each chosen bank, which the radio is sent to trunk
/// one after the other. The radio's choice of banks is restored in the end.
class Bc245IdTransfer : public memory::BankDialog {
 public:
  /// The main window of the radio.
  using MainWindow = std::function<memory::TransferWindow()>;

 protected:
  Bc245IdTransfer(const Words& words, MainWindow mainWindow, memory::TransferOutside outside);

  /// A chosen bank's turn.
  virtual void enterBank() {}
  /// Moves an ID. False: the user has had enough.
  virtual bool transferSlot(const memory::TransferWindow& main, int row, int group, int slot) = 0;

  memory::TransferOutside outside_;

 private:
  enum class Outcome { Done, Aborted, Ended };

  void transfer();
  Outcome transferBanks(const memory::TransferWindow& main);
  Outcome transferBank(const memory::TransferWindow& main, int bank);
  /// Sends the radio to a bank. Nothing if the program has ended; else whether the radio trunks.
  std::optional<bool> startTrunking(const memory::TransferWindow& main, int bank);
  void tellNotTrunking(int bank);
  /// Others have run: keeps the poll from coming between, whatever they did. False if the program
  /// has ended.
  bool holdPoll(const memory::TransferWindow& main);

  MainWindow mainWindow_;
  std::string status_;
};

/// "Upload Trunked Data". An ID that the radio refuses is shown, and the user can leave it at that.
class frmUploadtrs : public Bc245IdTransfer {
 public:
  frmUploadtrs(MainWindow mainWindow, memory::TransferOutside outside);

 protected:
  bool transferSlot(const memory::TransferWindow& main, int row, int group, int slot) override;
};

/// "Download Trunked Data". Empty slots come as the radio shows them.
class frmDownloadtrs : public Bc245IdTransfer {
 public:
  frmDownloadtrs(MainWindow mainWindow, memory::TransferOutside outside);

  [[nodiscard]] platform::CheckBox* option() override { return &Check1; }
  platform::CheckBox Check1{"Tarnvex should clear Alpha tags for ID's written to this bank."};

 protected:
  void enterBank() override { outside_.state.MemoryModified = true; }
  bool transferSlot(const memory::TransferWindow& main, int row, int group, int slot) override;
};

}  // namespace tarnvex::trunking
