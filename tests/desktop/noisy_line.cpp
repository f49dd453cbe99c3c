#include "desktop/noisy_line.h"

#include <utility>

namespace tarnvex::test {
namespace {

constexpr radio::Millis kExchange = 8;
constexpr radio::Millis kLook = 10;
constexpr int kSpinsPerLook = static_cast<int>(kLook) * 1000 / platform::kSpinMicroseconds;

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
    line_.under_way_.clear();
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
        line_.answer(text);
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

void NoisyLine::answer(std::string_view text) {
  for (std::size_t end = 0; (end = text.find('\r')) != std::string_view::npos;) {
    send(faults.apply(radio.exchange(text.substr(0, end)) + '\r'));
    text.remove_prefix(end + 1);
  }
  pass(0);
}

void NoisyLine::send(const std::vector<radio::OutgoingPart>& parts) {
  for (const auto& part : parts) {
    const auto delay = std::chrono::duration_cast<std::chrono::milliseconds>(part.delay).count();
    under_way_.push_back({clock_ + delay, part.bytes});
  }
}

void NoisyLine::pass(radio::Millis time) {
  clock_ += time;
  radio.advance(time);
  for (const std::string& line : radio.unsolicited()) {
    if (!faults.isSilent()) {
      stray(line);
    }
  }
  while (!under_way_.empty() && under_way_.front().due <= clock_) {
    waiting_ += under_way_.front().bytes;
    under_way_.pop_front();
  }
}

}  // namespace tarnvex::test
