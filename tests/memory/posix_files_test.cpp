#include "files/posix_files.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <set>

namespace tarnvex::test {
namespace {

namespace fs = std::filesystem;
using files::PosixFiles;
using platform::OpenMode;
using testing::ElementsAre;
using testing::Eq;
using testing::Optional;

/// The machine's calls, of which the n-th one fails or kills the process. Counts the open files.
class FailingCalls : public files::FileCalls {
  using Calls = files::FileCalls;

 public:
  int stat(const char* path, struct stat* status) override {
    return fails("stat") ? -1 : Calls::stat(path, status);
  }
  int access(const char* path, int mode) override {
    return fails("access") ? -1 : Calls::access(path, mode);
  }
  int open(const char* path, int flags, mode_t mode) override {
    const int file = fails("open") ? -1 : FileCalls::open(path, flags, mode);
    opened += file >= 0 ? 1 : 0;
    return file;
  }
  int fstat(int file, struct stat* status) override {
    return fails("fstat") ? -1 : Calls::fstat(file, status);
  }
  ssize_t read(int file, void* bytes, std::size_t size) override {
    return fails("read") ? -1 : FileCalls::read(file, bytes, size);
  }
  ssize_t write(int file, const void* bytes, std::size_t size) override {
    return fails("write") ? -1 : FileCalls::write(file, bytes, std::min(size, atMost));
  }
  int fchmod(int file, mode_t mode) override {
    return fails("fchmod") ? -1 : Calls::fchmod(file, mode);
  }
  int fsync(int /*file*/) override { return fails("fsync") ? -1 : 0; }
  int close(int file) override {
    --opened;
    FileCalls::close(file);
    return fails("close") ? -1 : 0;
  }
  int rename(const char* from, const char* to) override {
    return fails("rename") ? -1 : Calls::rename(from, to);
  }

  /// Calls left before the one that fails.
  int failAt = 0;
  int error = ENOSPC;
  bool kills = false;
  std::string failed;
  int opened = 0;
  std::size_t atMost = std::string::npos;

 private:
  bool fails(const char* call) {
    if (--failAt != 0) {
      return false;
    }
    if (kills) {
      std::raise(SIGKILL);
    }
    failed = call;
    errno = error;
    return true;
  }
};

class DiskFiles : public testing::Test {
 protected:
  DiskFiles() {
    std::string name = (fs::temp_directory_path() / "tarnvex-files-XXXXXX").string();
    folder = ::mkdtemp(name.data());
  }
  ~DiskFiles() override { fs::remove_all(folder); }

  [[nodiscard]] std::string at(const std::string& name) const { return (folder / name).string(); }
  static std::string contentOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static void put(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
  }
  [[nodiscard]] std::set<std::string> names() const {
    std::set<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder)) {
      found.insert(entry.path().filename().string());
    }
    return found;
  }

  fs::path folder;
  FailingCalls calls;
  PosixFiles store{calls};
  platform::SequentialFiles files{store};
};

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
