#include <gtest/gtest.h>

#include <random>

#include "poll_rig.h"

namespace tarnvex::monitor {
namespace {

using test::Piece;

std::string modeOf(int code) {
  return "MD" + std::to_string(100 + code).substr(1);
}

/// What differs between the radios here.
struct DeskSet {
  using Rig = test::Bc895Rig;
  static constexpr int kModes = 17;
  /// A mode that ends an ID loop.
  static constexpr const char* kLeft = "MD15";
  /// How many commands of a tick come before the mode is known, and how many it has at least.
  static constexpr std::size_t kModeKnown = 4;
  static constexpr std::size_t kFewest = 7;
  static std::vector<test::Exchange> opening() {
    return test::opening("") + "CT > CTN; PR > PRN; DL > DLN";
  }
  static void removeLeftovers(PanelState& panel) { panel.Auto.setVisible(false); }
  static constexpr const char* kPicture =
      "Frequency: 155.1150, Alpha: Fire, Channel: P  12, CTCSS: 79.7, Scan, Trunk, Priority, "
      "Delay, LO, MHZ, CtcssStat, Bank, Bankltr: A B C, Sig: 2 / 79.7";
};
struct Handheld {
  using Rig = test::Bc245Rig;
  static constexpr int kModes = 21;
  static constexpr const char* kLeft = "MD13";
  static constexpr std::size_t kModeKnown = 8;
  static constexpr std::size_t kFewest = 8;
  static std::vector<test::Exchange> opening() { return test::opening245(""); }
  static void removeLeftovers(Bc245Panel& panel) {
    panel.Police.setVisible(false);
    panel.Channel.setVisible(true);
  }
  static constexpr const char* kPicture =
      "Frequency: 155.1150, Alpha: Fire, Channel: P  12, Scan, Trunk, LO, Bank, Bankltr: 1 2 3";
};

/// What a healthy radio answers.
template <class Radio>
std::string healthy(std::string_view command, std::string_view mode) {
  static const std::vector<test::Exchange> kReplies =
      Radio::opening() +
      "SB > SB ABC; MA > C012 F01551150 TN DN LN AF RF N05; PC A > PC A012; SQ > +; IS > IS ABC; "
      "IC > IC B3 005678; IDN > IDN SB1 005678; WI > WI018F01551150; PI B > PI B3";
  if (command == "MD") {
    return std::string(mode);
  }
  const auto found = std::ranges::find(kReplies, command, &test::Exchange::command);
  return found == kReplies.end() ? "OK" : found->reply();
}

/// What can happen to a reply on a bad line.
std::vector<Piece> disturbed(const std::string& reply, std::mt19937& random);

/// A radio whose line can be disturbed.
template <class Radio>
struct FaultsOf : testing::Test, Radio::Rig {
  using Radio::Rig::dialogs;
  using Radio::Rig::form;
  using Radio::Rig::gate;
  using Radio::Rig::radio;
  using Radio::Rig::state;

  std::string mode = "MD00";
  /// How many rounds an ID mode lasts.
  int rounds = 3;

  FaultsOf() {
    radio.userLeaves = true;
    answerHealthily();
  }
  std::string reply(std::string_view command) {
    const bool left = command == "MD" && --rounds < 0;
    return healthy<Radio>(command, left ? Radio::kLeft : mode);
  }
  void answerHealthily() {
    radio.answer = [this](std::string_view command) {
      return std::vector<Piece>{{reply(command) + "\r"}};
    };
  }
  void tickOnce() {
    rounds = 3;
    gate.enterTimer(form.Scantimer);
  }
  /// Whatever has happened, Connect and one tick without faults must restore the whole panel.
  void expectRecovery() {
    answerHealthily();
    mode = "MD00";
    state.KnobUpHeld = state.KnobDownHeld = state.EntryActive = false;
    state.LowerLimitEditing = state.UpperLimitEditing = false;
    Radio::removeLeftovers(form.panel);
    form.linkControls.Command3.userClick();
    tickOnce();
    ASSERT_EQ(test::parts(this->picture()), test::parts(Radio::kPicture));
    ASSERT_EQ(form.window.caption(), "Tarnvex - Untitled");
  }

  void reportOneSilence() {
    for (int code = 0; code < Radio::kModes; ++code) {
      for (std::size_t silentAt = 1;; ++silentAt) {
        mode = modeOf(code);
        SCOPED_TRACE(mode + " command " + std::to_string(silentAt));
        state.KnobUpHeld = true;
        radio.log.clear();
        radio.answer = [&](std::string_view command) {
          return radio.log.size() == silentAt ? std::vector<Piece>{}
                                              : std::vector<Piece>{{reply(command) + "\r"}};
        };
        tickOnce();
        if (radio.log.size() < silentAt) {
          EXPECT_TRUE(dialogs.boxes.empty());
          EXPECT_GT(silentAt, Radio::kFewest);
          break;
        }
        ASSERT_EQ(dialogs.takeBoxes().size(), 1U);
        ASSERT_EQ(radio.log.size(), silentAt + 1) << "only the close comes after it";
        ASSERT_EQ(radio.log.back(), "close");
        ASSERT_FALSE(form.Scantimer.enabled() || form.MSComm1->portOpen());
        ASSERT_EQ(form.panel.mode.caption().substr(0, 2),
                  silentAt <= Radio::kModeKnown ? "" : "MD");
        expectRecovery();
      }
    }
  }

  void cutReplies() {
    for (int code = 0; code < Radio::kModes; ++code) {
      for (std::size_t length = 0; length < 34; ++length) {
        mode = modeOf(code);
        SCOPED_TRACE(mode + " cut to " + std::to_string(length));
        radio.answer = [&](std::string_view command) {
          const std::string whole = reply(command);
          const bool kept = command == "SI" || command == "MD";
          return std::vector<Piece>{{(kept ? whole : whole.substr(0, length)) + "\r"}};
        };
        tickOnce();
        ASSERT_TRUE(dialogs.boxes.empty());
        expectRecovery();
      }
    }
  }

  void tickOnABadLine() {
    for (const unsigned seed : {1U, 2U, 3U}) {
      SCOPED_TRACE(seed);
      std::mt19937 random(seed);
      form.hitLists.chkSkip.setValue(true);
      radio.answer = [&](std::string_view command) { return disturbed(reply(command), random); };
      for (int i = 0; i < 2000; ++i) {
        mode = modeOf(static_cast<int>(random() % Radio::kModes));
        state.KnobUpHeld = random() % 4 == 0;
        state.KnobDownHeld = random() % 4 == 0;
        state.EntryActive = random() % 4 == 0;
        state.LowerLimitEditing = random() % 4 == 0;
        form.window.setMinimised(random() % 2 == 0);
        const std::size_t boxes = dialogs.boxes.size();
        tickOnce();
        ASSERT_FALSE(form.Scantimer.running());
        ASSERT_LE(dialogs.boxes.size(), boxes + 1) << "one notice per loss";
        if (!form.Scantimer.enabled() || !form.MSComm1->portOpen()) {
          form.linkControls.Command3.userClick();
        }
      }
      EXPECT_GT(dialogs.takeBoxes().size(), 0U);
      form.window.setMinimised(false);
      form.window.setCaption("Tarnvex - Untitled");
      radio.answer = nullptr;
      form.hitLists.chkSkip.onClick = nullptr;
      form.hitLists.chkSkip.setValue(false);
      expectRecovery();
    }
  }
};

std::vector<Piece> disturbed(const std::string& reply, std::mt19937& random) {
  const auto below = [&](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  std::string garbled = reply;
  for (int i = below(4); i > 0 && !garbled.empty(); --i) {
    garbled[random() % garbled.size()] = static_cast<char>(below(256));
  }
  switch (below(10)) {
    case 0:
      return {{reply.substr(0, random() % (reply.size() + 1)) + "\r"}};
    case 1:
      return {{reply + "\r" + garbled + "\r"}};
    case 2:
      return {{reply, 1 + below(90000)}, {"\r", 1 + below(90000)}};
    case 3:
      return {{garbled + "\r"}};
    case 4: {
      std::string noise(static_cast<std::size_t>(below(60)), '\0');
      for (char& byte : noise) {
        byte = static_cast<char>(below(256));
      }
      return {{noise + "\r"}};
    }
    case 5:
      return {{reply + "\r"}, {garbled + "\r", 1 + below(3000)}};
    case 6:
      return {{below(8) == 0 ? garbled : reply + "\r", 1, below(8) == 0}};
    default:
      return {{reply + "\r"}};
  }
}

using Bc895Faults = FaultsOf<DeskSet>;
using Bc245Faults = FaultsOf<Handheld>;

TEST_F(Bc895Faults, SilenceAtAnyPointOfATickIsReportedOnce) {
  reportOneSilence();
}

TEST_F(Bc245Faults, SilenceAtAnyPointOfATickIsReportedOnce) {
  reportOneSilence();
}

TEST_F(Bc895Faults, CutRepliesLeaveWhatTheyDoNotReach) {
  cutReplies();
}

TEST_F(Bc245Faults, CutRepliesLeaveWhatTheyDoNotReach) {
  cutReplies();
}

TEST_F(Bc895Faults, SurvivesThousandsOfTicksOnABadLine) {
  tickOnABadLine();
}

TEST_F(Bc245Faults, SurvivesThousandsOfTicksOnABadLine) {
  tickOnABadLine();
}

}  // namespace
}  // namespace tarnvex::monitor
