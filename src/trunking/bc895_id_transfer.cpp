#include <algorithm>

#include "link/scanner_commands.h"
#include "memory/plan_lookup.h"
#include "memory/plan_records.h"
#include "trunking/id_transfer.h"

namespace tarnvex::trunking {
namespace {

using memory::TalkgroupRecord;

/// The radio has half of the groups that the plan has.
constexpr int kGroups = 5;
constexpr int kSlots = 10;

}  // namespace

std::optional<int> TrunkBankResolver(link::ScannerLink& link, const platform::Table& MSFlexGrid1) {
  const link::SignalReply signal(link.SendCommand(link::command::kSignal));
  const auto frequency = signal.tableFrequency();
  const auto row = frequency ? memory::findChannel(MSFlexGrid1, *frequency) : std::nullopt;
  return row ? std::optional(memory::bankOfChannel(*row)) : std::nullopt;
}

/// While another transfer runs the mode isn't known: the poll stands still.
bool Bc895IdTransfer::mayBegin(const memory::TransferTurn& turn) {
  if (!turn.granted()) {
    outside_.dialogs.beep();
    return false;
  }
  if (std::ranges::find(link::mode895::kIdModes, main_.mode.caption()) !=
      link::mode895::kIdModes.end()) {
    return true;
  }
  outside_.dialogs.messageBox(
      "Radio must be in Trunked Mode first. Set the radio to Trunk Mode and try again.",
      "Not in Trunked Mode", platform::kWarning);
  return false;
}

void Bc895IdTransfer::begin(const char* status) {
  main_.Scantimer.setEnabled(false);
  main_.Frequency.setCaption(status);
}

void Bc895IdTransfer::upload() {
  const memory::TransferTurn turn(outside_.state);
  if (!mayBegin(turn)) {
    return;
  }
  begin("Loading ID's");
  outside_.gate.yield();
  if (outside_.gate.ended()) {
    return;
  }
  // A COM option or Connect may have started it again.
  main_.Scantimer.setEnabled(false);
  outside_.dialogs.setBusyPointer(true);
  if (transferBank(&Bc895IdTransfer::typeId)) {
    outside_.link.SendCommand(link::key::kScan);
  }
}

void Bc895IdTransfer::download() {
  outside_.state.MemoryModified = true;
  const memory::TransferTurn turn(outside_.state);
  if (!mayBegin(turn)) {
    return;
  }
  begin("Reading ID's");
  outside_.dialogs.setBusyPointer(true);
  transferBank(&Bc895IdTransfer::readId);
}

/// Without a bank the poll goes on, but the pointer stays the hourglass: it shows that nothing came
/// of the transfer.
bool Bc895IdTransfer::transferBank(void (Bc895IdTransfer::*transferSlot)(int, int, int)) {
  const auto bank = TrunkBankResolver(outside_.link, main_.MSFlexGrid1);
  if (!bank && !outside_.gate.ended()) {
    outside_.dialogs.messageBox(
        "The Trunked Frequency was not found. Tarnvex is unable to determine the scanner bank in "
        "use. Please check your station program and try again.",
        "Frequency not found", platform::kWarning);
  }
  progress.start(bank ? kGroups * kSlots : 0);
  // Somebody who wants out needn't wait for all fifty.
  for (int group = 0; bank && group < kGroups; ++group) {
    for (int slot = 1; slot <= kSlots && !outside_.gate.leaving(); ++slot) {
      (this->*transferSlot)(memory::groupRow(*bank, group) + slot - 1, group, slot);
      progress.advance();
    }
  }
  progress.clear();
  if (outside_.gate.ended()) {
    return false;
  }
  if (bank) {
    outside_.dialogs.setBusyPointer(false);
  }
  main_.Scantimer.setEnabled(true);
  return bank.has_value();
}

/// Selects the slot and types its ID. A plain ID has six digits in the plan and five at the keys:
/// its first one stays away. No ID is typed as a 0.
void Bc895IdTransfer::typeId(int row, int group, int slot) {
  outside_.link.SendCommand(link::command::readId(group, slot));
  const std::string id(main_.MSFlexGrid2.textMatrix(row, TalkgroupRecord::Id));
  std::string typed;
  if (id.empty() || id.find("--") != std::string::npos) {
    typed = "0";
  } else {
    typed = id.find('-') != std::string::npos ? id : id.substr(1);
  }
  for (const char character : typed) {
    outside_.link.SendCommand(link::key::idCharacter(character));
  }
  outside_.link.SendCommand(link::key::kEnter);
}

void Bc895IdTransfer::readId(int row, int group, int slot) {
  const link::TrunkIdReply reply(outside_.link.SendCommand(link::command::readId(group, slot)));
  if (!outside_.gate.ended()) {
    main_.MSFlexGrid2.setTextMatrix(row, TalkgroupRecord::Id, reply.id());
  }
}

}  // namespace tarnvex::trunking
