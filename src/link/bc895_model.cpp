#include "link/radio_model.h"
#include "platform/table.h"

namespace tarnvex::link {
namespace {

constexpr int kOwnWidth = platform::Table::kDesignWidth;

/// Deliberate: at Done, one more mode counts as an ID mode than when the form opens. In that mode a
/// list of frequencies would be returned as IDs, but the radio never reports it.
constexpr std::array kIdModesAtDone{mode895::kIdSearch, mode895::kIdHold, mode895::kTrunkScan,
                                    mode895::kTrunkManual, mode895::kUnassigned};
constexpr std::array kSearchKeyModes{mode895::kIdSearch, mode895::kIdHold};

}  // namespace

const RadioModel& bc895Model() {
  static const RadioModel kModel = {
      .key = "BC895",
      .mainWindow = "Form4",
      .baudBox = "Combo4",
      .trunkBankBox = "Combo1",
      .quickView = "QuickView",
      .quickViewCaption = " BC895xlt - Quick View",
      .bankNames = {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J"},
      .baudRates = {"4800", "9600"},
      .baudStep = 4800,
      .channelHeadings = {"Ch.", "Frequency", "Trnk", "Dly", "L/O", "Line", "CTCSS", "Alpha Tag"},
      .channelWidths = {500, kOwnWidth, 500, 500, 500, 500, 700, 3000},
      .talkgroupHeadings = {"Channel", "Talkgroup ID", "Alpha Tag", "PRI"},
      .tagLimit = 30,
      .talkgroupDirtyRule = DirtyRule::AfterFirstKey,
      .enterVisitsPriority = false,
      // Deliberate: half of the table. Enter moves on to the next row only in the first five banks.
      .enterLastRow = 500,
      .hitIdStart = 1,
      .convertsIds = false,
      .asksBeforeReplacing = false,
      .modalDialogs = false,
      .bankKey = [](int bank) { return key::bank(bankLetter(bank)); },
      .asksSystemType = false,
      // Deliberate: a limit is saved as whole MHz, so its decimals are lost.
      .searchMask = "00000000",
      .mostSearches = std::nullopt,
      .scansAfterNo = true,
      .idModesAtLoad = mode895::kIdModes,
      .idModesAtDone = kIdModesAtDone,
      .searchKeyModes = kSearchKeyModes,
      .clearsBeforeMode = true,
      .lockoutWords = kLockout895,
      .numberedLockouts = false,
  };
  return kModel;
}

}  // namespace tarnvex::link
