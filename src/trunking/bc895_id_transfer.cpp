#include "trunking/bc895_id_transfer.h"

#include "link/insist.h"
#include "link/scanner_commands.h"
#include "memory/plan_lookup.h"
#include "memory/plan_records.h"

namespace tarnvex::trunking {
namespace {

using memory::TalkgroupRecord;
using memory::Transfer;

/// The radio has half of the plan's groups.
constexpr int kGroups = 5;
constexpr int kSlots = 10;

}  // namespace

std::optional<int> TrunkBankResolver(link::ScannerLink& link, const platform::Table& MSFlexGrid1) {
  const link::SignalReply signal(link::insist(link, link::command::kSignal));
  const auto frequency = signal.tableFrequency();
  const auto row = frequency ? memory::findChannel(MSFlexGrid1, *frequency) : std::nullopt;
  return row ? std::optional(memory::bankOfChannel(*row)) : std::nullopt;
}

/// The mode on the panel is the radio's current one only if no other transfer has stopped the poll.
bool Bc895IdTransfer::mayBegin(const Transfer& transfer) {
  if (!transfer.granted()) {
    return false;
  }
  if (link::contains(link::mode895::kIdModes, main_.mode.caption())) {
    return true;
  }
  outside_.dialogs.messageBox(
      "Radio must be in Trunked Mode first. Set the radio to Trunk Mode and try again.",
      "Not in Trunked Mode", platform::kWarning);
  return false;
}

void Bc895IdTransfer::upload() {
  Transfer transfer(main_, outside_);
  if (!mayBegin(transfer)) {
    return;
  }
  transfer.begin("Loading ID's");
  if (!transfer.letOthersRun()) {
    return;
  }
  transfer.showHourglass();
  if (transferBank(transfer, &Bc895IdTransfer::typeId)) {
    outside_.link.SendCommand(link::key::kScan);
  }
}

void Bc895IdTransfer::download() {
  const auto step = main_.history.step("Download");
  outside_.state.MemoryModified = true;
  Transfer transfer(main_, outside_);
  if (!mayBegin(transfer)) {
    return;
  }
  transfer.begin("Reading ID's");
  if (!transfer.keepPlan()) {
    return;
  }
  transfer.showHourglass();
  transferBank(transfer, &Bc895IdTransfer::readId);
}

/// Deliberate: if the bank isn't known, the hourglass stays although the poll is started again.
bool Bc895IdTransfer::transferBank(Transfer& transfer,
                                   void (Bc895IdTransfer::*transferSlot)(int, int, int)) {
  const auto bank = TrunkBankResolver(outside_.link, main_.MSFlexGrid1);
  if (!bank && !outside_.gate.ended()) {
    outside_.dialogs.messageBox(
        "The Trunked Frequency was not found. Tarnvex is unable to determine the scanner bank in "
        "use. Please check your station program and try again.",
        "Frequency not found", platform::kWarning);
  }
  progress.start(bank ? kGroups * kSlots : 0);
  // A user who wants to leave doesn't wait for all fifty.
  for (int group = 0; bank && group < kGroups; ++group) {
    for (int slot = 1; slot <= kSlots && !outside_.gate.leaving(); ++slot) {
      (this->*transferSlot)(memory::groupRow(*bank, group) + slot - 1, group, slot);
      progress.advance();
    }
  }
  progress.clear();
  if (bank && !outside_.gate.ended()) {
    transfer.showArrow();
  }
  return transfer.end() && bank.has_value();
}

/// Selects the slot and types its ID. A plain ID has six digits in the plan and five on the keys,
/// so the first one is left out. An empty slot is typed as 0.
void Bc895IdTransfer::typeId(int row, int group, int slot) {
  outside_.link.SendCommand(link::command::readId(group, slot));
  const std::string id(main_.MSFlexGrid2.textMatrix(row, TalkgroupRecord::Id));
  std::string typed;
  if (id.empty() || memory::meansNoId(id)) {
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
