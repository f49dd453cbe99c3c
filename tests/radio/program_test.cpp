// The program itself: started, spoken to and ended as its users do.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace {

/// What a descriptor has to say until `end` has come, or nothing more comes for five seconds.
std::string readUntil(int fd, std::string_view end) {
  std::string text;
  while (!text.ends_with(end)) {
    pollfd ready{fd, POLLIN, 0};
    char c = 0;
    if (poll(&ready, 1, 5000) != 1 || ::read(fd, &c, 1) != 1) break;
    text += c;
  }
  return text;
}

class Program {
 public:
  explicit Program(std::vector<std::string> arguments) {
    std::array<int, 2> in{}, out{};
    EXPECT_EQ(pipe2(in.data(), O_CLOEXEC), 0);
    EXPECT_EQ(pipe2(out.data(), O_CLOEXEC), 0);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    arguments.insert(arguments.begin(), TARNVEX_RADIO);
    std::vector<char*> argv;
    for (std::string& each : arguments) argv.push_back(each.data());
    argv.push_back(nullptr);
    EXPECT_EQ(posix_spawn(&pid_, TARNVEX_RADIO, &actions, nullptr, argv.data(), environ), 0);
    posix_spawn_file_actions_destroy(&actions);
    ::close(in[0]);
    ::close(out[1]);
    input_ = in[1];
    output_ = out[0];
  }
  ~Program() {
    if (pid_ > 0) end(SIGKILL);
    closeInput();
    ::close(output_);
  }
  Program(const Program&) = delete;

  std::string line() { return readUntil(output_, "\n"); }
  std::string control(const std::string& text, std::string_view end = "ok\n") {
    EXPECT_GT(::write(input_, text.data(), text.size()), 0);
    return readUntil(output_, end);
  }
  void closeInput() {
    if (input_ >= 0) ::close(input_);
    input_ = -1;
  }
  /// Its exit code, after a signal if one is given.
  int end(int signal = 0) {
    if (signal != 0) kill(pid_, signal);
    int status = 0;
    waitpid(pid_, &status, 0);
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  pid_t pid_ = -1;
  int input_ = -1;
  int output_ = -1;
};

std::string linkPath() {
  const auto name = "tarnvex-radio-test-" + std::to_string(getpid());
  return (std::filesystem::temp_directory_path() / name).string();
}

TEST(Program, AnswersOnItsTerminalAndTidiesUp) {
  const std::string link = linkPath();
  for (const int signal : {SIGTERM, SIGINT}) {
    Program program({"--baud", "0", "--scene", "tour", "--link", link});
    const std::string ready = program.line();
    EXPECT_EQ(ready, "ready " + std::filesystem::read_symlink(link).string() + "\n");
    const int port = ::open(link.c_str(), O_RDWR | O_NOCTTY);
    ASSERT_GE(port, 0);
    ASSERT_EQ(::write(port, "MD\r", 3), 3);
    EXPECT_EQ(readUntil(port, "\r"), "MD00\r");
    ::close(port);
    EXPECT_EQ(program.end(signal), 0);
    EXPECT_FALSE(std::filesystem::is_symlink(link));
  }
}

TEST(Program, IsSteeredThroughItsInput) {
  Program program({"--baud", "0", "--model", "bc245", "--mode", "MD04", "--control"});
  program.line();
  EXPECT_NE(program.control("state\n").find("\nmode=MD04\n"), std::string::npos);
  EXPECT_EQ(program.control("hangup\ntempo 2\n", "ok\nok\n"), "ok\nok\n");
  EXPECT_EQ(program.control("scene\n", "\n").substr(0, 7), "error: ");
  program.closeInput();
  EXPECT_EQ(program.end(), 0);
}

TEST(Program, ThePlanInTheRepositoryIsUpToDate) {
  const std::string path = linkPath() + ".tvf";
  Program program({"--write-plan", path});
  ASSERT_EQ(program.end(), 0);
  const auto read = [](const std::string& name) {
    const int fd = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
    std::string text(60000, '\0');
    text.resize(static_cast<std::size_t>(std::max<ssize_t>(0, ::read(fd, text.data(), 60000))));
    ::close(fd);
    return text;
  };
  EXPECT_TRUE(read(path) == read(TARNVEX_DEMO_PLAN)) << "tarnvex-radio --write-plan writes it anew";
  std::filesystem::remove(path);
}

}  // namespace
