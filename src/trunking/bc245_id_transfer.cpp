#include "trunking/bc245_id_transfer.h"

#include <utility>

#include "link/answer_filter.h"
#include "link/insist.h"
#include "link/scanner_commands.h"
#include "memory/plan_records.h"

namespace tarnvex::trunking {
namespace {

using memory::TalkgroupRecord;

constexpr int kGroups = 10;
constexpr int kSlots = 10;
/// How long the radio may take to start trunking. The clock counts whole seconds, so the wait ends
/// after three.
constexpr double kTrunkingSeconds = 2.9;

/// "1  (1 to 30)" to "10 (271 to 300)". The channels show which bank is meant.
std::vector<std::string> numberedBanks(int count) {
  std::vector<std::string> banks;
  for (int bank = 0; bank < count; ++bank) {
    std::string number = std::to_string(bank + 1);
    number.resize(3, ' ');
    banks.push_back(number + "(" + memory::bankRange(bank) + ")");
  }
  return banks;
}

}  // namespace

Bc245IdTransfer::Bc245IdTransfer(Words words, MainWindow mainWindow,
                                 const memory::TransferOutside& outside)
    : BankDialog(std::move(words), numberedBanks(kBanks), kGroups * kSlots, std::move(mainWindow),
                 outside) {}

memory::BankDialog::Outcome Bc245IdTransfer::transferBanks(memory::Transfer& transfer) {
  choice_ = link::insist(outside_.link, link::command::kScanBanks);
  for (int bank = 0; bank < kBanks; ++bank) {
    const Outcome outcome = !List1.selected(bank)     ? Outcome::Done
                            : transfer.letOthersRun() ? transferBank(transfer, bank)
                                                      : Outcome::Ended;
    if (outcome != Outcome::Done) {
      return outcome;
    }
  }
  return outside_.gate.ended() ? Outcome::Ended : Outcome::Done;
}

void Bc245IdTransfer::releaseRadio() {
  // A text that isn't a choice of banks would be a command of some other kind.
  if (choice_.starts_with(link::command::kScanBanks)) {
    outside_.link.SendCommand(choice_);
  }
  outside_.link.SendCommand(link::key::kTrunk);
  outside_.link.SendCommand(link::key::kTrunk);
}

memory::BankDialog::Outcome Bc245IdTransfer::transferBank(memory::Transfer& transfer, int bank) {
  enterBank();
  const auto trunking = startTrunking(transfer, bank);
  if (!trunking) {
    return Outcome::Ended;
  }
  return *trunking ? transferSlots(transfer, bank) : passOver(transfer, bank);
}

memory::BankDialog::Outcome Bc245IdTransfer::transferSlots(memory::Transfer& transfer, int bank) {
  for (int group = 0; group < kGroups; ++group) {
    for (int slot = 1; slot <= kSlots; ++slot) {
      const int row = memory::groupRow(bank, group) + slot - 1;
      const bool goesOn = transferSlot(transfer.main, row, group, slot);
      if (!transfer.keepPollStopped()) {
        return Outcome::Ended;
      }
      if (!goesOn) {
        return Outcome::Aborted;
      }
      progress.advance();
    }
  }
  return Outcome::Done;
}

std::optional<bool> Bc245IdTransfer::startTrunking(memory::Transfer& transfer, int bank) {
  auto& link = outside_.link;
  link.SendCommand(link::command::scanBanks(std::string(1, link::bankLetter(bank))));
  link.SendCommand(link::key::kTrunk);
  link.SendCommand(link::key::kTrunk);
  platform::waitBeyond(kTrunkingSeconds, outside_.gate, outside_.clock);
  if (!transfer.keepPollStopped()) {
    return std::nullopt;
  }
  link.SendCommand(link::key::kManual);
  outside_.state.CurrentMode = link::insist(link, link::command::kMode);
  if (!transfer.keepPollStopped()) {
    return std::nullopt;
  }
  return link::mode245::holdsTrunkedBank(outside_.state.CurrentMode);
}

memory::BankDialog::Outcome Bc245IdTransfer::passOver(memory::Transfer& transfer, int bank) {
  outside_.dialogs.messageBox(
      "Unable to start trunking on Bank " + std::to_string(bank + 1) +
          ". Either this is not a trunked bank, the trunked system is not in receiver range, or "
          "the scanner was not in trunked mode initially.",
      "Not in Trunked Mode", platform::kWarning);
  if (!transfer.keepPollStopped()) {
    return Outcome::Ended;
  }
  outside_.link.SendCommand(link::key::kTrunk);
  progress.advance(kGroups * kSlots);
  return Outcome::Done;
}

frmUploadtrs::frmUploadtrs(MainWindow mainWindow, const memory::TransferOutside& outside)
    : Bc245IdTransfer({"frmUploadtrs", "Upload Trunked Data", "Select Bank(s) to Upload",
                       "Upload Now", "Loading ID's"},
                      std::move(mainWindow), outside) {}

/// Deliberate: an empty slot is sent as zeros, and reported as zeros if the radio refuses it. A
/// blank cell isn't reported; a cell is blank until the cursor has been near.
bool frmUploadtrs::transferSlot(const memory::TransferWindow& main, int row, int group, int slot) {
  std::string id(main.MSFlexGrid2.textMatrix(row, TalkgroupRecord::Id));
  if (memory::meansNoId(id)) {
    id = "000000";
  }
  const std::string command = link::command::writeId(group, slot, id);
  const std::string reply = outside_.link.SendCommand(command);
  const bool ofAnotherSlot =
      link::isOwnAnswer(command, reply) && !reply.starts_with(link::command::readId(group, slot));
  if (ofAnotherSlot || reply == link::reply::kNothing) {
    // This slot's own answer may still come. It must not be taken for the next slot's.
    outside_.link.resynchronise();
  }
  const bool blank = id.find_first_not_of(' ') == std::string::npos;
  if (reply == link::reply::kError && !blank && !goesOnAfterRefusal(id)) {
    return false;
  }
  if (main.MSFlexGrid2.textMatrix(row, TalkgroupRecord::Priority) == "X") {
    outside_.link.SendCommand(link::command::setPriorityId(group, slot));
  }
  return true;
}

bool frmUploadtrs::goesOnAfterRefusal(const std::string& id) {
  return outside_.dialogs.messageBox(
             "Tarnvex could not upload talkgroup ID: " + id +
                 ". This talkgroup may be invalid, or you may not have the correct fleet map set. "
                 "Click OK to continue, or Cancel to abort.",
             "Invalid Talkgroup Entry.", platform::kOkCancelWarning) != platform::Answer::Cancel;
}

frmDownloadtrs::frmDownloadtrs(MainWindow mainWindow, const memory::TransferOutside& outside)
    : Bc245IdTransfer({"frmDownloadtrs", "Download Trunked Data", "Select Bank(s) to Download",
                       "Download Now", "Reading ID's"},
                      std::move(mainWindow), outside) {}

memory::BankDialog::Outcome frmDownloadtrs::transferBanks(memory::Transfer& transfer) {
  const auto step = transfer.main.history.step("Download");
  const bool kept = selectedBanks() == 0 || transfer.keepPlan();
  return kept ? Bc245IdTransfer::transferBanks(transfer) : Outcome::Ended;
}

/// Deliberate: asks for the group's priority ID at every slot, and never removes a mark from the
/// plan. If the radio's priority ID has moved, the old mark stays.
bool frmDownloadtrs::transferSlot(const memory::TransferWindow& main, int row, int group,
                                  int slot) {
  const link::TrunkIdReply reply(
      link::withDashes(outside_.link.SendCommand(link::command::readId(group, slot))));
  if (outside_.gate.ended()) {
    return false;
  }
  auto& grid = main.MSFlexGrid2;
  grid.setTextMatrix(row, TalkgroupRecord::Id, reply.id());
  if (Check1.value()) {
    grid.setTextMatrix(row, TalkgroupRecord::AlphaTag, "");
  }
  const std::string letter(1, link::bankLetter(group));
  if (link::isPriorityId(outside_.link.SendCommand(link::command::priorityId(letter)), group,
                         slot)) {
    grid.setTextMatrix(row, TalkgroupRecord::Priority, "X");
  }
  return true;
}

}  // namespace tarnvex::trunking
