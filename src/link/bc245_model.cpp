#include <limits>

#include "link/radio_model.h"
#include "platform/table.h"

namespace tarnvex::link {
namespace {

constexpr int kOwnWidth = platform::Table::kDesignWidth;
constexpr int kHidden = 0;

constexpr std::array kIdModes{
    mode245::kIdSearch,    mode245::kIdHold,         mode245::kTrunkScan,
    mode245::kTrunkManual, mode245::kTrunkSearch,    mode245::kIdSearchEdacs,
    mode245::kIdHoldEdacs, mode245::kTrunkScanEdacs, mode245::kTrunkManualEdacs};
constexpr std::array kSearchKeyModes{mode245::kIdSearch, mode245::kIdHold, mode245::kTrunkSearch,
                                     mode245::kIdSearchEdacs};

}  // namespace

const RadioModel& bc245Model() {
  static const RadioModel kModel = {
      .key = "BC245",
      .mainWindow = "Form2",
      .baudBox = "Combo1",
      .trunkBankBox = "Combo4",
      .quickView = "Form9",
      .quickViewCaption = "Quick View - BC245xlt",
      .bankNames = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"},
      .baudRates = {"2400", "4800", "9600", "19200"},
      .baudStep = 2400,
      // The radio has neither a line output nor tones, but the plan keeps both for the BC895XLT.
      .channelHeadings = {"Channel", "Frequency", "Trnk", "Dly", "L/O", "", "", "Alpha Tag"},
      .channelWidths = {kOwnWidth, kOwnWidth, 500, 500, 500, kHidden, kHidden, 3000},
      .talkgroupHeadings = {"Bank: Ch.", "Talkgroup ID", "Alpha Tag", "PRI"},
      .tagLimit = std::numeric_limits<std::size_t>::max(),
      .talkgroupDirtyRule = DirtyRule::EveryKey,
      .enterVisitsPriority = true,
      .enterLastRow = 1000,
      .hitIdStart = 2,
      .convertsIds = true,
      .asksBeforeReplacing = true,
      .modalDialogs = true,
      .bankKey = [](int bank) { return key::number(bank + 1); },
      .asksSystemType = true,
      .searchMask = "0000.0000",
      .mostSearches = 200,
      .scansAfterNo = false,
      .idModesAtLoad = kIdModes,
      .idModesAtDone = kIdModes,
      .searchKeyModes = kSearchKeyModes,
      .clearsBeforeMode = false,
      .lockoutWords = kLockout245,
      .numberedLockouts = true,
  };
  return kModel;
}

}  // namespace tarnvex::link
