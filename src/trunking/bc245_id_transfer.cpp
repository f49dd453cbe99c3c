#include <utility>

#include "link/scanner_commands.h"
#include "memory/plan_records.h"
#include "trunking/id_transfer.h"

namespace tarnvex::trunking {
namespace {

using memory::TalkgroupRecord;
using memory::TransferWindow;

constexpr int kGroups = 10;
constexpr int kSlots = 10;
/// How long the radio may take until it trunks; in whole seconds, so three of them.
constexpr double kTrunkingSeconds = 2.9;

/// "1  (1 to 30)" to "10 (271 to 300)": the channels show which bank is meant.
std::vector<std::string> numberedBanks(int count) {
  std::vector<std::string> banks;
  for (int bank = 0; bank < count; ++bank) {
    std::string number = std::to_string(bank + 1);
    number.resize(3, ' ');
    banks.push_back(number + "(" + std::to_string(memory::bankRow(bank)) + " to " +
                    std::to_string(memory::bankRow(bank + 1) - 1) + ")");
  }
  return banks;
}

}  // namespace

Bc245IdTransfer::Bc245IdTransfer(const Words& words, MainWindow mainWindow,
                                 memory::TransferOutside outside)
    : BankDialog(words, numberedBanks(kBanks)),
      outside_(outside),
      mainWindow_(std::move(mainWindow)),
      status_(words.status) {
  Command1.onClick = [this] { transfer(); };
}

void Bc245IdTransfer::transfer() {
  const memory::TransferTurn turn(outside_.state);
  if (!turn.granted()) {
    outside_.dialogs.beep();
    return;
  }
  disableControls();
  const TransferWindow main = mainWindow_();
  main.Scantimer.setEnabled(false);
  main.Frequency.setCaption(status_);
  outside_.dialogs.setBusyPointer(true);
  progress.start(selectedBanks() * kGroups * kSlots);
  const std::string banks = outside_.link.SendCommand(link::command::kScanBanks);
  const Outcome outcome = transferBanks(main);
  if (outcome == Outcome::Ended) {
    return;
  }
  if (outcome == Outcome::Aborted) {
    closed.notify();
  }
  outside_.dialogs.setBusyPointer(false);
  // The answer is the command that restores it.
  outside_.link.SendCommand(banks);
  outside_.link.SendCommand(link::key::kTrunk);
  outside_.link.SendCommand(link::key::kTrunk);
  if (outside_.gate.ended()) {
    return;
  }
  main.Scantimer.setEnabled(true);
  if (outcome == Outcome::Done) {
    closed.notify();
  }
}

Bc245IdTransfer::Outcome Bc245IdTransfer::transferBanks(const TransferWindow& main) {
  for (int bank = 0; bank < kBanks; ++bank) {
    if (!List1.selected(bank)) {
      continue;
    }
    outside_.gate.yield();
    if (!holdPoll(main)) {
      return Outcome::Ended;
    }
    const Outcome outcome = transferBank(main, bank);
    if (outcome != Outcome::Done) {
      return outcome;
    }
  }
  return outside_.gate.ended() ? Outcome::Ended : Outcome::Done;
}

Bc245IdTransfer::Outcome Bc245IdTransfer::transferBank(const TransferWindow& main, int bank) {
  enterBank();
  const auto trunking = startTrunking(main, bank);
  if (!trunking) {
    return Outcome::Ended;
  }
  if (!*trunking) {
    tellNotTrunking(bank);
    if (!holdPoll(main)) {
      return Outcome::Ended;
    }
    outside_.link.SendCommand(link::key::kTrunk);
    progress.advance(kGroups * kSlots);
    return Outcome::Done;
  }
  for (int group = 0; group < kGroups; ++group) {
    for (int slot = 1; slot <= kSlots; ++slot) {
      const bool goesOn = transferSlot(main, memory::groupRow(bank, group) + slot - 1, group, slot);
      if (!holdPoll(main)) {
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

std::optional<bool> Bc245IdTransfer::startTrunking(const TransferWindow& main, int bank) {
  auto& link = outside_.link;
  link.SendCommand(link::command::scanBanks(std::string(1, link::bankLetter(bank))));
  link.SendCommand(link::key::kTrunk);
  link.SendCommand(link::key::kTrunk);
  const auto start = outside_.clock.seconds();
  outside_.gate.waitUntil(
      [&] { return static_cast<double>(outside_.clock.seconds() - start) > kTrunkingSeconds; });
  if (!holdPoll(main)) {
    return std::nullopt;
  }
  link.SendCommand(link::key::kManual);
  outside_.state.CurrentMode = link.SendCommand(link::command::kMode);
  if (!holdPoll(main)) {
    return std::nullopt;
  }
  return link::mode245::holdsTrunkedBank(outside_.state.CurrentMode);
}

void Bc245IdTransfer::tellNotTrunking(int bank) {
  outside_.dialogs.messageBox(
      "Unable to start trunking on Bank " + std::to_string(bank + 1) +
          ". Either this is not a trunked bank, the trunked system is not in receiver range, or "
          "the scanner was not in trunked mode initially.",
      "Not in Trunked Mode", platform::kWarning);
}

bool Bc245IdTransfer::holdPoll(const TransferWindow& main) {
  if (outside_.gate.ended()) {
    return false;
  }
  // A COM option or Connect has started it again.
  main.Scantimer.setEnabled(false);
  return true;
}

frmUploadtrs::frmUploadtrs(MainWindow mainWindow, memory::TransferOutside outside)
    : Bc245IdTransfer({"frmUploadtrs", "Upload Trunked Data", "Select Bank(s) to Upload",
                       "Upload Now", "Loading ID's"},
                      std::move(mainWindow), outside) {}

/// An empty slot goes out as zeros, and is reported so if the radio refuses it. A blank cell, which
/// nobody has been at, isn't reported.
bool frmUploadtrs::transferSlot(const TransferWindow& main, int row, int group, int slot) {
  std::string id(main.MSFlexGrid2.textMatrix(row, TalkgroupRecord::Id));
  if (id.find("--") != std::string::npos) {
    id = "000000";
  }
  const std::string reply = outside_.link.SendCommand(link::command::writeId(group, slot, id));
  if (reply == link::reply::kError && id.find_first_not_of(' ') != std::string::npos) {
    const auto answer = outside_.dialogs.messageBox(
        "Tarnvex could not upload talkgroup ID: " + id +
            ". This talkgroup may be invalid, or you may not have the correct fleet map set. Click "
            "OK to continue, or Cancel to abort.",
        "Invalid Talkgroup Entry.", platform::kOkCancelWarning);
    if (answer == platform::Answer::Cancel) {
      return false;
    }
  }
  if (main.MSFlexGrid2.textMatrix(row, TalkgroupRecord::Priority) == "X") {
    outside_.link.SendCommand(link::command::setPriorityId(group, slot));
  }
  return true;
}

frmDownloadtrs::frmDownloadtrs(MainWindow mainWindow, memory::TransferOutside outside)
    : Bc245IdTransfer({"frmDownloadtrs", "Download Trunked Data", "Select Bank(s) to Download",
                       "Download Now", "Reading ID's"},
                      std::move(mainWindow), outside) {}

/// The radio is asked for the group's priority ID at every slot: the answer may move while the
/// transfer runs. A mark that stands in the plan already is never taken away.
bool frmDownloadtrs::transferSlot(const TransferWindow& main, int row, int group, int slot) {
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
