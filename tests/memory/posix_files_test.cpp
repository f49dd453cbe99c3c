#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <set>

#include "disk_fixture.h"

namespace tarnvex::test {
namespace {

using platform::OpenMode;
using testing::ElementsAre;
using testing::Eq;
using testing::Optional;

TEST_F(DiskFiles, EveryFailingCallOfASaveLeavesACompleteFile) {
  for (const OpenMode mode : {OpenMode::Output, OpenMode::Append}) {
    const std::string whole =
        (mode == OpenMode::Append ? "old\r\n" : "") + std::string("\"new\"\r\n");
    std::set<std::string> kinds;
    bool failed = true;
    for (int n = 1; failed; ++n) {
      put(at("plan.tvf"), "old\r\n");
      calls.failed.clear();
      calls.failAt = n;
      auto failure = files.open(1, at("plan.tvf"), mode);
      failure = failure ? failure : files.write(1, {"new"});
      failure = failure ? failure : files.flush(1);
      calls.failAt = 0;
      files.close(1);
      failed = !calls.failed.empty();
      kinds.insert(calls.failed);
      EXPECT_EQ(calls.opened, 0) << n;
      EXPECT_THAT(names(), ElementsAre("plan.tvf")) << n << calls.failed;
      EXPECT_EQ(failure.has_value(), contentOf(at("plan.tvf")) != whole ||
                                         (calls.failed == "fsync" && failure.has_value()))
          << n << calls.failed;
      if (failure) {
        EXPECT_EQ(*failure, "Disk full");
        // Only the sync of the folder comes when the new file is already in place.
        if (calls.failed != "fsync" || contentOf(at("plan.tvf")) != whole) {
          EXPECT_EQ(contentOf(at("plan.tvf")), "old\r\n") << n;
        }
      }
    }
    EXPECT_THAT(kinds, testing::IsSupersetOf({"stat", "access", "open", "write", "fchmod", "fsync",
                                              "close", "rename"}));
  }
}

TEST_F(DiskFiles, AProcessKilledInASaveLeavesACompleteFileAndNothingForGood) {
  const std::string old(40000, 'o');
  const std::string fresh(40000, 'n');
  calls.atMost = 1000;
  calls.kills = true;
  std::set<std::string> left;
  bool killed = true;
  for (int n = 1; killed; ++n) {
    put(at("plan.tvf"), old);
    const pid_t child = ::fork();
    if (child == 0) {
      calls.failAt = n;
      ::_exit(store.replace(at("plan.tvf"), fresh) ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    killed = WIFSIGNALED(status);
    left.insert(contentOf(at("plan.tvf")));
    EXPECT_TRUE(killed || status == 0) << n;
  }
  EXPECT_THAT(left, ElementsAre(fresh, old)) << "always one or the other";
  // Only a kill between naming and renaming leaves a file behind.
  const auto strays = names();
  EXPECT_LE(strays.size(), 5U);
  // A file that another process may still be writing is left alone.
  EXPECT_FALSE(store.replace(at("plan.tvf"), fresh));
  EXPECT_EQ(names(), strays);
  put(at(".tarnvex-notes"), "no temporary file");
  for (const auto& name : names()) {
    fs::last_write_time(at(name), fs::file_time_type::clock::now() - std::chrono::minutes(2));
  }
  EXPECT_FALSE(store.replace(at("other.tvf"), fresh));
  EXPECT_THAT(names(), ElementsAre(".tarnvex-notes", "other.tvf", "plan.tvf"));
}

TEST_F(DiskFiles, WritesGoOnAfterShortAndInterruptedOnes) {
  calls.atMost = 2;
  calls.error = EINTR;
  for (int n = 1; calls.failed != "write"; ++n) {
    calls.failAt = n;
    const auto failure = store.replace(at("a"), "content");
    EXPECT_EQ(failure.has_value(), calls.failed != "write");
  }
  EXPECT_EQ(contentOf(at("a")), "content");
  calls.atMost = 0;
  EXPECT_THAT(store.replace(at("a"), "more"), Optional(Eq("Disk full")));
}

TEST_F(DiskFiles, FollowsLinksAndKeepsModes) {
  put(at("real"), "old");
  ::chmod(at("real").c_str(), 0640);
  fs::create_directory(at("sub"));
  fs::create_symlink("../real", at("sub/link"));
  fs::create_symlink("sub/link", at("chain"));
  fs::create_symlink("later", at("dangling"));
  fs::create_symlink("loop", at("loop"));
  EXPECT_FALSE(store.replace(at("chain"), "new"));
  EXPECT_EQ(contentOf(at("real")), "new");
  EXPECT_TRUE(fs::is_symlink(at("chain")) && fs::is_symlink(at("sub/link")));
  EXPECT_EQ(fs::status(at("real")).permissions(), fs::perms{0640});
  EXPECT_FALSE(store.exists(at("dangling")));
  EXPECT_FALSE(store.replace(at("dangling"), "made"));
  EXPECT_EQ(contentOf(at("later")), "made");
  EXPECT_THAT(store.checkWritable(at("loop")), Optional(Eq("Bad file name")));
  const mode_t mask = ::umask(0);
  ::umask(mask);
  EXPECT_EQ(fs::status(at("later")).permissions(), fs::perms{0666U & ~mask});
}

/// A file with two names, or one that a new file couldn't take the place of.
TEST_F(DiskFiles, ASaveInPlaceKeepsTheFileAndOnFailureItsBytes) {
  for (const bool linked : {true, false}) {
    for (const char* content : {"new", "a longer text than before"}) {
      const std::string old = "old content";
      bool failed = true;
      for (int n = 1; failed; ++n) {
        put(at("plan.tvf"), old);
        fs::remove(at("other"));
        if (linked) {
          fs::create_hard_link(at("plan.tvf"), at("other"));
        }
        calls.refuseOwner = !linked;
        calls.foreignOwner = !linked;
        struct stat before = {};
        ::stat(at("plan.tvf").c_str(), &before);
        calls.failed.clear();
        calls.failAt = n;
        const auto failure = store.replace(at("plan.tvf"), content);
        calls.failAt = 0;
        failed = !calls.failed.empty();
        EXPECT_EQ(calls.opened, 0) << n;
        struct stat after = {};
        ::stat(at("plan.tvf").c_str(), &after);
        EXPECT_EQ(after.st_ino, before.st_ino) << n << calls.failed;
        EXPECT_EQ(contentOf(at("plan.tvf")), failure ? old : content) << n << calls.failed;
        EXPECT_EQ(names().size(), linked ? 2U : 1U) << n << calls.failed;
      }
      EXPECT_EQ(contentOf(at(linked ? "other" : "plan.tvf")), content);
    }
  }
}

TEST_F(DiskFiles, AFileIsSavedInAFolderThatTakesNoNewOne) {
  put(at("plan.tvf"), "old");
  calls.refuseFolders = true;
  EXPECT_FALSE(files.open(1, at("plan.tvf"), OpenMode::Output));
  files.write(1, {"new"});
  EXPECT_FALSE(files.close(1));
  EXPECT_EQ(contentOf(at("plan.tvf")), "\"new\"\r\n");
  EXPECT_THAT(files.open(1, at("fresh.tvf"), OpenMode::Output), Optional(Eq("Permission denied")));
}

TEST_F(DiskFiles, RefusesAtOnceWhatIsNotAFile) {
  ASSERT_EQ(::mkfifo(at("pipe").c_str(), 0600), 0);
  put(at("file"), "");
  const std::string nul("a\0b", 3);
  const std::pair<std::string, std::string> cases[] = {
      {at("pipe"), "This is a device, not a file"},
      {"/dev/null", "This is a device, not a file"},
      {folder.string(), "This is a folder, not a file"},
      {at("none/a"), "Path not found"},
      {at("file/a"), "Path not found"},
      {"", "Bad file name"},
      {at(nul), "Bad file name"},
      {at(std::string(300, 'n')), "Bad file name"},
  };
  for (const auto& [path, description] : cases) {
    for (const OpenMode mode : {OpenMode::Input, OpenMode::Output, OpenMode::Append}) {
      EXPECT_THAT(files.open(1, path, mode), Optional(Eq(description))) << path;
    }
    EXPECT_THAT(store.replace(path, "x"), Optional(Eq(description))) << path;
  }
  EXPECT_THAT(files.open(1, at("none"), OpenMode::Input), Optional(Eq("File not found")));
  EXPECT_TRUE(store.exists(at("pipe")));
  EXPECT_FALSE(store.exists(folder.string()));
  EXPECT_FALSE(store.exists(""));
}

TEST_F(DiskFiles, EveryFailingCallOfAReadIsReported) {
  put(at("a"), "content");
  calls.error = EACCES;
  for (int n = 1; n <= 4; ++n) {
    calls.failAt = n;
    std::array<std::string, 1> field;
    auto failure = files.open(1, at("a"), OpenMode::Input);
    failure = failure ? failure : files.read(1, field);
    files.close(1);
    EXPECT_THAT(failure, Optional(Eq("Permission denied"))) << n;
    EXPECT_EQ(calls.opened, 0);
  }
}

TEST_F(DiskFiles, FindsANameInAnyCase) {
  EXPECT_EQ(store.inAnyCase(at("searchlist.txt")), at("searchlist.txt"));
  put(at("SearchList.txt"), "");
  put(at("Searchlist.txt"), "");
  EXPECT_EQ(store.inAnyCase(at("searchlist.txt")), at("SearchList.txt"));
  EXPECT_EQ(store.inAnyCase(at("Searchlist.txt")), at("Searchlist.txt"));
  EXPECT_EQ(store.inAnyCase(at("none/x")), at("none/x"));
  files.open(1, at("SEARCHLIST.TXT"), OpenMode::Output, platform::NameCase::Any);
  files.write(1, {7});
  EXPECT_FALSE(files.close(1));
  EXPECT_EQ(contentOf(at("SearchList.txt")), "7\r\n");
  EXPECT_TRUE(files.exists(at("SEARCHLIST.TXT"), platform::NameCase::Any));
  EXPECT_FALSE(files.exists(at("SEARCHLIST.TXT")));
}

}  // namespace
}  // namespace tarnvex::test
