// Dated copies of plans: their names, which of them stay, and a folder that takes none.
#include "files/backup_folder.h"

#include <gmock/gmock.h>

#include "disk_fixture.h"

namespace tarnvex::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Optional;

class DatedClock : public platform::Clock {
 public:
  [[nodiscard]] std::string now() const override { return text; }
  [[nodiscard]] std::int64_t seconds() const override { return 0; }
  [[nodiscard]] std::int64_t milliseconds() const override { return 0; }
  std::string text = "2026-03-01 14:05:59";
};

class BackupTest : public DiskFiles {
 protected:
  platform::Failure keep(const std::string& path, const std::string& content) {
    return backups.keep(path, content, kept);
  }
  [[nodiscard]] std::set<std::string> copies() const {
    std::set<std::string> found;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder / "backups", error)) {
      found.insert(entry.path().filename().string());
    }
    return found;
  }

  DatedClock clock;
  files::BackupFolder backups{calls, clock, folder.string()};
  std::string kept;
};

TEST_F(BackupTest, NamesCopiesForTheirFileAndTime) {
  const std::pair<const char*, const char*> cases[] = {
      {"/plans/city.tvf", "city 2026-03-01 14-05-59.tvf"},
      {"city.tvf", "city 2026-03-01 14-05-59 (2).tvf"},
      {"city", "city 2026-03-01 14-05-59 (3).tvf"},
      {"", "Untitled 2026-03-01 14-05-59.tvf"},
      {"/plans/.tvf", "Untitled 2026-03-01 14-05-59 (2).tvf"},
  };
  for (const auto& [path, name] : cases) {
    EXPECT_FALSE(keep(path, path));
    EXPECT_EQ(kept, at(std::string("backups/") + name));
    EXPECT_EQ(contentOf(kept), path);
  }
  EXPECT_FALSE(keep(std::string(255, 'n'), "long"));
  EXPECT_EQ(contentOf(kept), "long");
}

TEST_F(BackupTest, KeepsTheNewestFiftyAndOneADayOfTheLastMonth) {
  fs::create_directory(at("backups"));
  put(at("backups/notes.txt"), "mine");
  put(at("backups/city 2026-01-01.tvf"), "mine too");
  // Two a day, from the oldest on.
  const auto day = [](int month, int of) {
    char date[16];
    std::snprintf(date, sizeof date, "2026-%02d-%02d", month, of);
    return std::string(date);
  };
  std::vector<std::string> days;
  for (int of = 1; of <= 31; ++of) {
    days.push_back(day(1, of));
  }
  for (int of = 1; of <= 28; ++of) {
    days.push_back(day(2, of));
  }
  for (const std::string& date : days) {
    for (const char* time : {" 08:00:00", " 20:00:00"}) {
      clock.text = date + time;
      EXPECT_FALSE(keep("city.tvf", date));
    }
  }
  clock.text = "2026-03-01 00:00:01";
  EXPECT_FALSE(keep("city.tvf", "today"));
  auto left = copies();
  EXPECT_EQ(left.erase("notes.txt") + left.erase("city 2026-01-01.tvf"), 2U)
      << "not ours to remove";
  // Fifty back to the evening of 4 February; before that an evening a day back to 30 January.
  EXPECT_EQ(left.size(), 55U);
  EXPECT_THAT(left, Contains("city 2026-02-05 08-00-00.tvf"));
  EXPECT_THAT(left, Contains("city 2026-02-04 20-00-00.tvf"));
  EXPECT_THAT(left, testing::Not(Contains("city 2026-02-04 08-00-00.tvf")));
  EXPECT_EQ(*left.begin(), "city 2026-01-30 20-00-00.tvf");
  // Of one second, the highest number is the newest.
  std::vector<std::string> names = {"a 2026-03-01 00-00-01.tvf"};
  for (int number = 2; number <= 52; ++number) {
    names.push_back("a 2026-03-01 00-00-01 (" + std::to_string(number) + ").tvf");
  }
  EXPECT_THAT(files::superfluousBackups(names, "2026-03-01"),
              ElementsAre("a 2026-03-01 00-00-01 (2).tvf", "a 2026-03-01 00-00-01.tvf"));
}

TEST_F(BackupTest, AFailureIsToldAndLeavesNoHalfACopy) {
  fs::create_directory(at("backups"));
  calls.atMost = 4;
  std::set<std::string> kinds;
  for (int n = 1; kinds.insert(calls.failed).second || !calls.failed.empty(); ++n) {
    calls.failed.clear();
    calls.failAt = n;
    const auto failure = keep("city.tvf", "content of a plan");
    calls.failAt = 0;
    EXPECT_EQ(failure.has_value(), !calls.failed.empty()) << n;
    if (failure) {
      EXPECT_EQ(*failure, "Disk full");
      EXPECT_THAT(copies(), IsEmpty()) << n << calls.failed;
    }
    EXPECT_EQ(calls.opened, 0);
  }
  EXPECT_THAT(kinds, testing::IsSupersetOf({"open", "write", "close"}));
  // Something else has its name.
  fs::remove_all(at("backups"));
  put(at("backups"), "a file");
  EXPECT_THAT(keep("city.tvf", "x"), Optional(Eq("Path not found")));
  EXPECT_EQ(contentOf(at("backups")), "a file");
}

}  // namespace
}  // namespace tarnvex::test
