// A download can be taken back, and the plan is kept before it.
#include <gmock/gmock.h>

#include "id_rig.h"
#include "memory/download_dialog.h"
#include "support/plan_bytes.h"

namespace tarnvex::trunking {
namespace {

using test::IdRig;

struct Download {
  const char* name;
  IdRig::Model model;
  std::function<void(IdRig&, std::vector<int> banks)> run;
};

const Download kDownloads[] = {
    {"channels", IdRig::Model::Bc895,
     [](IdRig& rig, std::vector<int> banks) {
       memory::frmDownload dialog([&] { return rig.window(); }, rig.outside());
       rig.run(dialog, banks);
     }},
    {"IDs of a BC245XLT", IdRig::Model::Bc245,
     [](IdRig& rig, std::vector<int> banks) {
       rig.download.Check1.setValue(true);
       rig.run(rig.download, banks);
     }},
    {"IDs of a BC895XLT", IdRig::Model::Bc895,
     [](IdRig& rig, std::vector<int> banks) {
       if (!banks.empty()) {
         rig.transfer895().download();
       }
     }},
};

TEST(DownloadSteps, AreTakenBackByteForByte) {
  for (const auto& [name, model, run] : kDownloads) {
    for (const bool modified : {false, true}) {
      for (const int answered : {1'000'000, 40}) {
        SCOPED_TRACE(std::string(name) + " " + std::to_string(answered));
        IdRig rig(model);
        for (int row = 1; row <= 200; ++row) {
          rig.put(row, "000777");
          rig.talkgroups.setTextMatrix(row, 2, "tag " + std::to_string(row));
          rig.channels.setTextMatrix(row, 7, "tag " + std::to_string(row));
        }
        rig.answered = answered;
        rig.state.MemoryModified = modified;
        const auto bytes = [&rig] { return test::bytesOf({&rig.channels, &rig.talkgroups}); };
        const std::string before = bytes();
        rig.dialogs.whileOpen = [&] {
          EXPECT_FALSE(rig.memory.history().undo()) << "not before its end";
        };
        run(rig, {1, 2});
        EXPECT_TRUE(bytes() != before);
        EXPECT_EQ(rig.kept, 1);
        ASSERT_EQ(rig.memory.history().undoName(), "Download");
        rig.memory.history().undo();
        EXPECT_TRUE(bytes() == before);
        EXPECT_EQ(rig.state.MemoryModified, modified);
        EXPECT_EQ(rig.memory.history().undoName(), "");
      }
    }
    IdRig idle(model);
    run(idle, {});
    EXPECT_EQ(idle.kept, 0) << "nothing is overwritten";
    EXPECT_EQ(idle.memory.history().undoName(), "");
  }
}

}  // namespace
}  // namespace tarnvex::trunking
