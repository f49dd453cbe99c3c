#include <gmock/gmock.h>

#include "id_rig.h"
#include "platform/convert.h"
#include "radio/commands.h"
#include "support/radio_port.h"

namespace tarnvex::trunking {
namespace {

using memory::TalkgroupRecord;
using test::IdRig;

TEST(IdTransfer, BringsTheIdsBackFromBothRadios) {
  for (const bool bc245 : {false, true}) {
    radio::Radio radio(bc245 ? radio::Model::BC245XLT : radio::Model::BC895XLT);
    radio.playScene("city");
    IdRig rig(bc245 ? IdRig::Model::Bc245 : IdRig::Model::Bc895,
              std::make_unique<test::RadioPort>(radio));
    // The radio's clock runs while the program waits.
    for (int time = 0; time < 60'000; time += 200) {
      rig.loop.at(time, [&radio] { radio.advance(200); });
    }
    // The radio is trunking on a channel of the plan's second bank.
    radio.exchange("KEY13");
    const auto addChannel = [&] {
      const double units = radio::numberAt(radio.exchange(bc245 ? "WI" : "SG"), 7, 7);
      rig.channels.setTextMatrix(31, 1, platform::format(units / 1e4, "0.0000"));
    };
    const auto idOf = [](int row) {
      return row % 7 == 0 ? "-----" : platform::format(row * 2, "000000");
    };
    for (int row = 1; row <= TalkgroupRecord::kRows; ++row) {
      rig.put(row, idOf(row));
    }
    // Two banks with a trunked system and one without.
    const std::vector<int> banks = {1, 4, 7};
    auto transfer = rig.transfer895();
    addChannel();
    bc245 ? rig.run(rig.upload, banks) : transfer.upload();
    rig.memory.clear();
    addChannel();
    bc245 ? rig.run(rig.download, banks) : transfer.download();
    EXPECT_EQ(rig.dialogs.boxes.size(), bc245 ? 2U : 0U) << "one bank isn't trunked";
    for (int row = 1; row <= TalkgroupRecord::kRows; ++row) {
      const int bank = (row - 1) / 100;
      const bool travels = bc245 ? bank == 1 || bank == 7 : row > 100 && row <= 150;
      const std::string empty = "------";
      EXPECT_EQ(rig.id(row), !travels               ? rig.id(1)
                             : idOf(row) == "-----" ? empty
                                                    : idOf(row))
          << row;
    }
  }
}

}  // namespace
}  // namespace tarnvex::trunking
