#pragma once

#include <string>

#include "core/id_rig.h"
#include "line_trial/trial_port.h"
#include "memory/download_dialog.h"
#include "memory/upload_dialog.h"

namespace tarnvex::trial {

/// The transfers that a trial runs.
enum class TransferKind { UploadChannels, DownloadChannels, UploadIds, DownloadIds };
inline constexpr TransferKind kTransfers[] = {TransferKind::UploadChannels,
                                              TransferKind::DownloadChannels,
                                              TransferKind::UploadIds, TransferKind::DownloadIds};

std::string nameOf(TransferKind kind);

/// A plan and a radio on a trial line. Every channel and every ID differs from the others. All ten
/// banks are trunked systems; the radio follows IDs in the bank of `kTrunkedBank`.
class TransferLine : private platform::NonCopyable {
 public:
  static constexpr int kTrunkedBank = 1;

  TransferLine(radio::Model model, TransferKind kind);

  /// Runs the transfer. `banks` are ignored where the radio chooses the bank.
  void run(const std::vector<int>& banks);
  [[nodiscard]] int messages() const { return static_cast<int>(rig.dialogs.boxes.size()); }
  /// How many rows or places of these banks hold what belongs to another row after the transfer,
  /// and how many hold anything else that is wrong.
  [[nodiscard]] int shifted(const std::vector<int>& banks) const;
  [[nodiscard]] int wrong(const std::vector<int>& banks) const;
  /// Whether the radio's choice of banks is what it was before the transfer.
  [[nodiscard]] bool choiceKept() const { return choice() == choiceBefore_; }

  TrialRadio line;
  TrialPort* port;
  test::IdRig rig;

 private:
  [[nodiscard]] bool movesIds() const;
  [[nodiscard]] bool uploads() const;
  [[nodiscard]] std::string choice() const;
  void fillPlan();
  void fillRadio();
  /// What a place holds after the transfer: a row of the plan, or a place of the radio.
  [[nodiscard]] std::string held(int row) const;
  [[nodiscard]] std::vector<int> rowsOf(const std::vector<int>& banks) const;

  radio::Model model_;
  TransferKind kind_;
  std::string choiceBefore_;
};

}  // namespace tarnvex::trial
