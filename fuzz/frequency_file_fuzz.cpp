#include "fuzz_target.h"
#include "memory/frequency_file.h"
#include "memory/memory_store.h"
#include "memory/plan_fixture.h"
#include "support/fake_backups.h"
#include "support/fake_common_dialog.h"
#include "support/fake_settings.h"

namespace tarnvex {
namespace {

/// A plan with its file commands, in a folder of its own.
struct Plan : test::PlanFixture {
  Plan() : PlanFixture(link::bc895Model()) {}

  test::MemoryStore store;
  platform::SequentialFiles files{store};
  test::FakeCommonDialog dialog;
  test::FakeSettings settings;
  platform::Window window{"window", "Tarnvex"};
  test::FakeBackups backups;
  memory::FrequencyFile file{plan, {files, dialog, dialogs, settings, window, backups, dialog}};
};

/// A double quote within a cell can't be distinguished from the one that ends it.
bool hasQuotes(const platform::Table& table) {
  for (int row = 1; row < table.rows(); ++row) {
    for (int col = 0; col < table.cols(); ++col) {
      if (table.textMatrix(row, col).find('"') != std::string::npos) {
        return true;
      }
    }
  }
  return false;
}

bool same(const platform::Table& left, const platform::Table& right) {
  for (int row = 1; row < left.rows(); ++row) {
    for (int col = 0; col < left.cols(); ++col) {
      if (left.textMatrix(row, col) != right.textMatrix(row, col)) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace
}  // namespace tarnvex

/// Loads any file, which may fail. Then checks that the plan as it is can be saved and loaded
/// again.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnvex;
  using fuzz::require;
  fuzz::stopAtFailures();
  Plan first;
  first.store.files["given"] = fuzz::asText(data, size);
  static_cast<void>(first.file.LoadPlanFromFile("given"));
  first.files.close(1);
  if (hasQuotes(first.channels) || hasQuotes(first.talkgroups)) {
    return 0;
  }
  require(!first.file.WritePlanToFile("written"));
  Plan second;
  second.store.files["written"] = first.store.files["written"];
  require(!second.file.LoadPlanFromFile("written"));
  require(same(first.channels, second.channels) && same(first.talkgroups, second.talkgroups));
  return 0;
}
