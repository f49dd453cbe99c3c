// An afternoon with each of the radios, from what is on the air to the rows of the log.
#include <gmock/gmock.h>

#include <cmath>

#include "shell/bc245_form.h"
#include "shell/bc895_form.h"
#include "support/radio_port.h"
#include "support/world.h"

namespace tarnvex::monitor {
namespace {

using Lines = std::vector<std::string>;

/// What the user or a station does, and how long the program listens after it.
struct Step {
  enum What { Mode, Receive, Talk, Key, Nothing } what;
  /// A mode of the radio, a channel, a talkgroup or a key.
  std::string which;
  int talkMilliseconds;
  int listenMilliseconds;
};

/// A main form with a simulated radio, whose clock is also the program's.
template <class Form>
class Session : public test::World {
 public:
  Session(radio::Model model, const std::string& key) : radio_(model) {
    state.ModelKey = key;
    form_.MSFlexGrid1.setTextMatrix(61, 0, "61");
    form_.MSFlexGrid1.setTextMatrix(61, 1, "118.1000");
    form_.MSFlexGrid1.setTextMatrix(61, 7, "Tower");
    form_.MSComm1->open();
    form_.Scantimer.setEnabled(true);
  }

  Lines play(const std::vector<Step>& steps) {
    for (const Step& step : steps) {
      begin(step);
      const auto end = radio_.state().now + step.listenMilliseconds;
      while (radio_.state().now < end) {
        clock.offsetMilliseconds = radio_.state().now - loop.now();
        gate.enterTimer(form_.Scantimer);
      }
    }
    receptions.stop();
    Lines lines;
    for (const auto& [number, reception] : receptionStore.rows) {
      lines.push_back(line(reception));
    }
    return lines;
  }

 private:
  shell::Services onRadio() {
    services.makePort = [this] { return std::make_unique<test::RadioPort>(radio_); };
    return services;
  }

  void begin(const Step& step) {
    switch (step.what) {
      case Step::Mode:
        EXPECT_TRUE(radio_.setMode(step.which));
        break;
      case Step::Receive:
        EXPECT_TRUE(radio_.receive(std::stoi(step.which), step.talkMilliseconds));
        break;
      case Step::Talk:
        EXPECT_TRUE(radio_.talk(step.which, step.talkMilliseconds));
        break;
      case Step::Key:
        radio_.exchange(step.which);
        break;
      case Step::Nothing:
        break;
    }
  }

  /// "start+length radio mode source (tag)", in seconds.
  static std::string line(const Reception& reception) {
    const Heard& heard = reception.heard;
    const std::string source =
        heard.talkgroup.empty() ? std::to_string(heard.frequency) : "id " + heard.talkgroup;
    return std::to_string(std::lround(static_cast<double>(reception.started) / 1000)) + "+" +
           std::to_string(std::lround(reception.seconds)) + " " + reception.radio + " " +
           heard.mode + " " + source + (heard.tag.empty() ? "" : " (" + heard.tag + ")");
  }

  radio::Radio radio_;
  Form form_{onRadio(), outside()};
};

/// The tower for a while; two dispatches in such quick succession that they count as one, and a
/// third; the tower again, found by a search; and two talkgroups.
std::vector<Step> afternoon(const char* trunked) {
  return {{Step::Mode, "MD00", 0, 3000},       {Step::Receive, "61", 6000, 10'000},
          {Step::Receive, "1", 4000, 5000},    {Step::Receive, "1", 4000, 9000},
          {Step::Receive, "1", 1000, 6000},    {Step::Key, "LL01180000", 0, 0},
          {Step::Key, "LU01182000", 0, 0},     {Step::Mode, "MD02", 0, 3000},
          {Step::Receive, "61", 5000, 9000},   {Step::Mode, trunked, 0, 3000},
          {Step::Talk, "001616", 6000, 10000}, {Step::Talk, "003216", 3000, 1000}};
}

// With its delay, the radio stays on a channel for a while after the transmission. A transmission
// that goes on at the end of the session is logged as far as it was heard.
TEST(ReceptionSession, OfABc895xltIsInTheLog) {
  Session<shell::Form4> session(radio::Model::BC895XLT, "BC895");
  EXPECT_EQ(session.play(afternoon("MD09")),
            (Lines{"3+8 BC895XLT MD00 118100000 (Tower)", "13+11 BC895XLT MD00 155115000",
                   "27+3 BC895XLT MD00 155115000", "37+5 BC895XLT MD02 118100000 (Tower)",
                   "49+8 BC895XLT MD09 id 1616", "59+1 BC895XLT MD09 id 3216"}));
}

TEST(ReceptionSession, OfABc245xltIsInTheLog) {
  Session<shell::Form2> session(radio::Model::BC245XLT, "BC245");
  EXPECT_EQ(session.play(afternoon("MD11")),
            (Lines{"3+8 BC245XLT MD00 118100000 (Tower)", "13+11 BC245XLT MD00 155115000",
                   "27+3 BC245XLT MD00 155115000", "36+5 BC245XLT MD02 118100000 (Tower)",
                   "49+8 BC245XLT MD11 id 1616", "59+1 BC245XLT MD11 id 3216"}));
}

}  // namespace
}  // namespace tarnvex::monitor
