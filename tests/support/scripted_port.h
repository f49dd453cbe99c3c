#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/non_copyable.h"
#include "platform/serial_port.h"

namespace tarnvex::test {

/// Bytes that arrive together, `after` spins after the previous ones, or after the command. A reply
/// needs at least one spin.
struct Piece {
  std::string bytes;
  int after = 1;
  /// After these bytes the device is gone, as when the cable is pulled.
  bool lost = false;
};

/// A command without its carriage return, and what the radio sends after it.
struct Exchange {
  Exchange(std::string sent, const std::string& reply)
      : command(std::move(sent)), pieces{{reply + "\r"}} {}
  Exchange(std::string sent, std::vector<Piece> answer)
      : command(std::move(sent)), pieces(std::move(answer)) {}
  /// The first line of the answer.
  [[nodiscard]] std::string reply() const {
    return pieces.front().bytes.substr(0, pieces.front().bytes.find('\r'));
  }

  std::string command;
  std::vector<Piece> pieces;
};

inline std::vector<Exchange> operator+(std::vector<Exchange> first,
                                       const std::vector<Exchange>& then) {
  first.insert(first.end(), then.begin(), then.end());
  return first;
}

/// The texts between the separators, at least one.
inline std::vector<std::string> splitAt(const std::string& separator, const std::string& text) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  for (std::size_t end = 0; end != std::string::npos; start = end + separator.size()) {
    end = text.find(separator, start);
    parts.push_back(text.substr(start, end - start));
  }
  return parts;
}

/// Reads exchanges from a transcript: "SQ > +; SG > S018 F01551150". A line that the radio sends by
/// itself after the reply follows it: "IDN > OK > IDNS 005678". A command alone gets no answer.
inline std::vector<Exchange> script(const std::string& transcript) {
  std::vector<Exchange> exchanges;
  for (const auto& line :
       transcript.empty() ? std::vector<std::string>{} : splitAt("; ", transcript)) {
    const auto texts = splitAt(" > ", line);
    std::vector<Piece> pieces;
    for (std::size_t i = 1; i < texts.size(); ++i) {
      pieces.push_back({texts[i] + "\r"});
    }
    exchanges.emplace_back(texts.front(), pieces);
  }
  return exchanges;
}
inline std::vector<Exchange> operator+(const std::vector<Exchange>& first,
                                       const std::string& transcript) {
  return first + script(transcript);
}

/// The radio at the other end of the line. It expects exact commands: any other command fails the
/// test and gets no answer, and an expected one that never comes fails it, too. No real time
/// passes; `spins` is the line's clock.
class ScriptedRadio : private platform::NonCopyable {
 public:
  ~ScriptedRadio() { expectSpent(); }

  void expect(const std::vector<Exchange>& exchanges) {
    expected_.insert(expected_.end(), exchanges.begin(), exchanges.end());
  }
  /// Fails the test if an expected command hasn't come yet.
  void expectSpent() {
    if (!expected_.empty()) {
      ADD_FAILURE() << expected_.size() << " expected commands were not sent, the first one is \""
                    << expected_.front().command << '"';
      expected_.clear();
    }
  }
  /// While nothing is expected, answers every command, with `reply` unless `replies` has another
  /// answer.
  void answerAll(const std::string& reply, std::map<std::string, std::string> replies = {}) {
    answer = [reply, replies = std::move(replies)](std::string_view command) {
      const auto own = replies.find(std::string(command));
      return std::vector<Piece>{{(own == replies.end() ? reply : own->second) + "\r"}};
    };
  }
  /// Adds bytes that have arrived at the port.
  void send(std::string_view bytes) { waiting_ += bytes; }
  std::string takeLog() {
    std::string all;
    for (const std::string& entry : std::exchange(log, {})) {
      all += (all.empty() ? "" : "; ") + entry;
    }
    return all;
  }

  /// Answers every command while nothing is expected.
  std::function<std::vector<Piece>(std::string_view command)> answer;
  /// Runs when a wait begins, in place of the window's events that arrive while the core is busy.
  std::function<void()> whileWaiting;
  /// The descriptions with which slots fail to open.
  std::map<int, std::string> refusals;
  /// The reason for such a failure.
  platform::PortTrouble trouble = platform::PortTrouble::None;
  /// Whether the user ends a wait without a limit if nothing more comes. Otherwise the test fails,
  /// because the program hangs.
  bool userLeaves = false;
  /// Commands, and "open COM 1 at 9600,n,8,1" and "close", in order.
  std::vector<std::string> log;
  std::int64_t spins = 0;
  /// The number of ports on its line.
  int ports = 0;

 private:
  friend class ScriptedPort;

  struct Arrival {
    std::int64_t due;
    Piece piece;
  };

  void receive(std::string_view text) {
    if (!text.ends_with('\r')) {
      ADD_FAILURE() << "no carriage return after \"" << text << '"';
      return;
    }
    text.remove_suffix(1);
    log.emplace_back(text);
    if (lost_) {
      return;
    }
    if (expected_.empty() && answer) {
      schedule(answer(text));
    } else if (expected_.empty() || expected_.front().command != text) {
      ADD_FAILURE() << "sent \"" << text << "\" where "
                    << (expected_.empty() ? "nothing" : '"' + expected_.front().command + '"')
                    << " was expected";
    } else {
      schedule(expected_.front().pieces);
      expected_.pop_front();
    }
  }
  void schedule(const std::vector<Piece>& pieces) {
    std::int64_t due = spins;
    for (const Piece& piece : pieces) {
      due += piece.after;
      coming_.push_back({due, piece});
    }
  }
  void plug() {
    waiting_.clear();
    coming_.clear();
    lost_ = false;
  }
  /// Moves the line's clock on to the next arrival. False if that takes longer than `limit`.
  bool advance(std::int64_t limit) {
    if (coming_.empty() || coming_.front().due - spins > limit) {
      return false;
    }
    spins = std::max(spins, coming_.front().due);
    waiting_ += coming_.front().piece.bytes;
    lost_ = coming_.front().piece.lost;
    coming_.pop_front();
    return true;
  }

  std::deque<Exchange> expected_;
  std::deque<Arrival> coming_;
  std::string waiting_;
  bool lost_ = false;
  bool taken_ = false;
};

/// A window's port on the scripted radio's line.
class ScriptedPort : public platform::SerialPort {
 public:
  explicit ScriptedPort(ScriptedRadio& radio) : radio_(radio) { ++radio_.ports; }
  ~ScriptedPort() override {
    radio_.taken_ = radio_.taken_ && !open_;
    --radio_.ports;
  }

  void setCommPort(int slot) override {
    if (!open_ && slot >= 1 && slot <= 4) {
      slot_ = slot;
    }
  }
  [[nodiscard]] int commPort() const override { return slot_; }
  void setSettings(std::string settings) override { settings_ = std::move(settings); }
  [[nodiscard]] const std::string& settings() const override { return settings_; }
  [[nodiscard]] bool portOpen() const override { return open_; }

  std::optional<std::string> open() override {
    if (open_) {
      return "Port already open";
    }
    const auto refusal = radio_.refusals.find(slot_);
    if (refusal != radio_.refusals.end()) {
      radio_.log.push_back("refused COM " + std::to_string(slot_));
      return refusal->second;
    }
    if (radio_.taken_) {
      ADD_FAILURE() << "two windows have the port open";
    }
    radio_.log.push_back("open COM " + std::to_string(slot_) + " at " + settings_);
    radio_.plug();
    radio_.taken_ = open_ = true;
    return std::nullopt;
  }
  void close() override {
    if (open_) {
      radio_.log.emplace_back("close");
      radio_.plug();
      radio_.taken_ = open_ = false;
    }
  }

  [[nodiscard]] std::string deviceName() const override {
    return "ttyUSB" + std::to_string(slot_ - 1);
  }
  [[nodiscard]] platform::PortTrouble trouble() const override {
    return open_ && radio_.lost_ ? platform::PortTrouble::Lost : radio_.trouble;
  }

  [[nodiscard]] std::size_t inBufferCount() override { return open_ ? radio_.waiting_.size() : 0; }
  void discardInput() override { radio_.waiting_.clear(); }
  void output(std::string_view text) override {
    if (open_) {
      radio_.receive(text);
    }
  }
  std::string input() override { return open_ ? std::exchange(radio_.waiting_, {}) : ""; }

  bool waitForInput(std::size_t atLeast, platform::Spins& budget) override {
    const bool arrived = wait(atLeast, [&] {
      const std::int64_t start = radio_.spins;
      const bool came = radio_.advance(budget.left);
      budget.left -= static_cast<int>(radio_.spins - start);
      return came;
    });
    if (!arrived && open_ && !radio_.lost_) {
      radio_.spins += std::exchange(budget.left, 0);
    }
    return arrived;
  }
  bool waitForInput(std::size_t atLeast) override {
    const bool arrived =
        wait(atLeast, [&] { return radio_.advance(std::numeric_limits<std::int64_t>::max() / 2); });
    if (!arrived && open_ && !radio_.lost_ && !radio_.userLeaves) {
      ADD_FAILURE() << "waits for ever after \"" << (radio_.log.empty() ? "" : radio_.log.back())
                    << '"';
    }
    return arrived;
  }

 private:
  template <class Advance>
  bool wait(std::size_t atLeast, Advance advance) {
    if (inBufferCount() < atLeast && radio_.whileWaiting) {
      radio_.whileWaiting();
    }
    while (inBufferCount() < atLeast) {
      if (!open_ || radio_.lost_ || !advance()) {
        return false;
      }
    }
    return true;
  }

  ScriptedRadio& radio_;
  int slot_ = 1;
  std::string settings_ = "9600,n,8,1";
  bool open_ = false;
};

/// All ports that windows ask for are on the same line.
inline platform::SerialPortMaker scriptedPorts(ScriptedRadio& radio) {
  return [&radio] { return std::make_unique<ScriptedPort>(radio); };
}

}  // namespace tarnvex::test
