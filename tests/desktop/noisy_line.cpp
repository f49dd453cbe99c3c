#include "desktop/noisy_line.h"

#include <utility>

namespace tarnvex::test {
namespace {

constexpr std::chrono::milliseconds kExchange{8};
constexpr std::chrono::milliseconds kLook{10};
constexpr int kSpinsPerLook = static_cast<int>(kLook.count()) * 1000 / platform::kSpinMicroseconds;

}  // namespace

class NoisyPort : public platform::SerialPort {
 public:
  explicit NoisyPort(NoisyLine& line) : line_(line) {}

  void setCommPort(int slot) override { slot_ = open_ ? slot_ : slot; }
  [[nodiscard]] int commPort() const override { return slot_; }
  void setSettings(std::string settings) override { settings_ = std::move(settings); }
  [[nodiscard]] const std::string& settings() const override { return settings_; }
  [[nodiscard]] bool portOpen() const override { return open_; }

  std::optional<std::string> open() override {
    if (open_ || line_.plugged_ == 0 || slot_ > 2) {
      return open_ ? "Port already open" : "No radio there.";
    }
    open_ = true;
    plug_ = line_.plugged_;
    line_.waiting_.clear();
    line_.line.dropAll();
    return std::nullopt;
  }
  void close() override { open_ = false; }

  [[nodiscard]] std::size_t inBufferCount() override {
    return usable() ? line_.waiting_.size() : 0;
  }
  void discardInput() override {
    if (usable()) {
      line_.waiting_.clear();
    }
  }
  void output(std::string_view text) override {
    if (usable()) {
      line_.pass(kExchange);
      if (line_.anyBaud || settings_.starts_with("9600,")) {
        line_.line.toRadio(text, line_.clock_);
        line_.pass({});
      }
    }
  }
  std::string input() override { return usable() ? std::exchange(line_.waiting_, {}) : ""; }

  bool waitForInput(std::size_t atLeast, platform::Spins& budget) override {
    line_.meanwhile();
    for (; !holds(atLeast) && usable() && budget.left > 0; budget.left -= kSpinsPerLook) {
      line_.pass(kLook);
    }
    return holds(atLeast);
  }
  bool waitForInput(std::size_t atLeast) override {
    while (!holds(atLeast) && usable() && !line_.leaving()) {
      line_.pass(kLook);
      line_.meanwhile();
    }
    return holds(atLeast);
  }

 private:
  [[nodiscard]] bool usable() const { return open_ && plug_ == line_.plugged_; }
  [[nodiscard]] bool holds(std::size_t atLeast) { return inBufferCount() >= atLeast; }

  NoisyLine& line_;
  int slot_ = 1;
  int plug_ = 0;
  bool open_ = false;
  std::string settings_ = "9600,n,8,1";
};

std::unique_ptr<platform::SerialPort> NoisyLine::create() {
  return std::make_unique<NoisyPort>(*this);
}

void NoisyLine::pass(radio::Instant time) {
  clock_ += time;
  waiting_ += line.fromRadio(clock_);
}

}  // namespace tarnvex::test
