#pragma once

#include <optional>

#include "memory/transfer.h"

namespace tarnvex::trunking {

/// The bank (0 to 9) in which a BC895XLT is trunking. Asks the radio for its frequency and looks up
/// the channel with it. Nothing if the plan has no such channel.
std::optional<int> TrunkBankResolver(link::ScannerLink& link, const platform::Table& MSFlexGrid1);

/// Upload and download of talkgroup IDs on a BC895XLT, which has no dialog for them: groups A to E
/// of the bank in which the radio is trunking. The radio must be in a mode that works on IDs.
///
/// An upload types the IDs on the radio's keys, so nothing else may run in between. A user who
/// closes the main window or presses "RMT", Connect or a COM option ends the transfer at the next
/// slot. Replies aren't checked: a radio that falls silent is reported once by the link, and the
/// rest of the transfer runs on a closed port. If the program ends during a transfer, everything
/// stays as it is.
class Bc895IdTransfer {
 public:
  Bc895IdTransfer(const memory::TransferWindow& main, const memory::TransferOutside& outside)
      : main_(main), outside_(outside) {}

  /// Types all 50 IDs. Nothing shows if the radio refuses one.
  void upload();
  /// Reads all 50 IDs, as one step of undo and after a backup of the plan. Deliberate: the plan
  /// counts as changed even if the download is refused, so closing the program offers to save it.
  void download();

  /// The progress of the running transfer. The total is 0 if none is running.
  memory::Progress progress;

 private:
  bool mayBegin(const memory::Transfer& transfer);
  /// Transfers the IDs of the bank in use and starts the poll. False if the bank isn't known or the
  /// program has ended.
  bool transferBank(memory::Transfer& transfer,
                    void (Bc895IdTransfer::*transferSlot)(int row, int group, int slot));
  void typeId(int row, int group, int slot);
  void readId(int row, int group, int slot);

  memory::TransferWindow main_;
  memory::TransferOutside outside_;
};

}  // namespace tarnvex::trunking
