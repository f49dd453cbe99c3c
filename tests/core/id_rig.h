#pragma once

#include <map>
#include <memory>
#include <string>

#include "memory/plan_records.h"
#include "transfer_rig.h"
#include "trunking/bc245_id_transfer.h"
#include "trunking/bc895_id_transfer.h"

namespace tarnvex::test {

/// A radio that is trunking in the second bank, and the transfers of IDs.
struct IdRig : TransferRig {
  explicit IdRig(Model model, std::unique_ptr<platform::SerialPort> line = nullptr)
      : TransferRig(model, std::move(line)) {
    // The second bank's trunked system. A channel of the first bank has nearly the same frequency.
    channels.setTextMatrix(3, 1, "851.0126");
    channels.setTextMatrix(45, 1, "851.0125");
    channels.setTextMatrix(75, 1, "851.0125");
    replies["SG"] = "S020 F08510125";
    replies["SB"] = "SB BCD";
    replies["MD"] = "MD12";
    mode.setCaption("MD09");
  }

  void put(int row, const std::string& id) {
    talkgroups.setTextMatrix(row, memory::TalkgroupRecord::Id, id);
  }
  std::string id(int row) { return talkgroups.textMatrix(row, memory::TalkgroupRecord::Id); }
  trunking::Bc895IdTransfer transfer895() { return {window(), outside()}; }
  trunking::frmUploadtrs upload{[this] { return window(); }, outside()};
  trunking::frmDownloadtrs download{[this] { return window(); }, outside()};
};

/// The slots of a bank as in commands, by the offsets of their rows in the bank.
inline std::map<int, std::string> places(int groups) {
  std::map<int, std::string> all;
  for (int offset = 0; offset < groups * 10; ++offset) {
    all[offset] = static_cast<char>('A' + offset / 10) + std::to_string((offset + 1) % 10);
  }
  return all;
}

}  // namespace tarnvex::test
