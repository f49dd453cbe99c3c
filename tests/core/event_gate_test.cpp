#include "platform/event_gate.h"

#include <gtest/gtest.h>

#include "support/fake_loop.h"

namespace tarnvex::platform {
namespace {

/// A gate whose handlers write their names to `course`.
struct EventGateTest : testing::Test {
  test::FakeLoop loop;
  EventGate gate{loop};
  Timer poll{25};
  std::string course;

  EventGateTest() {
    poll.setEnabled(true);
    poll.onTick = [this] { course += "tick "; };
  }
  EventGate::Handler says(const std::string& word) {
    return [this, word] { course += word + ' '; };
  }
};

TEST_F(EventGateTest, QueuesWhatArrivesInAHandlerAndRunsItOneAtATimeWhenItYields) {
  gate.enter([&] {
    EXPECT_TRUE(gate.busy());
    gate.enter([&] {
      course += "a( ";
      gate.enter(says("c"));
      course += ") ";
    });
    gate.enter(says("b"));
    course += "exchange ";
    gate.yield();
    gate.enter(says("d"));
    course += "end ";
  });
  EXPECT_EQ(course, "exchange a( ) b c end d ");
  EXPECT_FALSE(gate.busy());
}

TEST_F(EventGateTest, DeliversWhatIsPendingBeforeATickAndOutsideIt) {
  loop.onTurn(1, [&] {
    gate.enter([&] { course += poll.running() ? "inside " : "outside "; });
    gate.enter(says("b"));
  });
  gate.enterTimer(poll);
  EXPECT_EQ(course, "outside b tick ");
}

TEST_F(EventGateTest, KeepsTheProgramsMessagesWhenAWindowsEventsAreDropped) {
  gate.enter([&] {
    gate.enter(says("click"));
    gate.enterMessage(says("disk full"));
    gate.dropUserEvents();
    gate.enter(says("exit"));
    gate.runMessages();
    gate.end();
  });
  EXPECT_EQ(course, "disk full ");
}

TEST_F(EventGateTest, QueuesATimerOnceAndAfterTheUsersEvents) {
  gate.enter([&] {
    gate.enterTimer(poll);
    gate.enterTimer(poll);
    gate.enter(says("user"));
    gate.enterTimer(poll);
  });
  EXPECT_EQ(course, "user tick ");
}

TEST_F(EventGateTest, NeverNestsATickButLetsOthersRunInIt) {
  Timer other(1000);
  other.setEnabled(true);
  other.onTick = says("other");
  poll.onTick = [&] {
    course += "tick( ";
    loop.onTurn(1, [&] {
      gate.enterTimer(poll);
      gate.enterTimer(other);
      gate.enter(says("key"));
    });
    gate.yield();
    course += ") ";
  };
  gate.enterTimer(poll);
  EXPECT_EQ(course, "tick( key other ) ");
}

TEST_F(EventGateTest, DropsATickThatIsDueDuringItsOwn) {
  poll.onTick = [&] {
    course += "tick ";
    gate.enterTimer(poll);
  };
  gate.enterTimer(poll);
  EXPECT_EQ(course, "tick ");
}

TEST_F(EventGateTest, KeepsThePollRunningWhileAMessageBoxIsOpen) {
  const auto box = [&] {
    course += "box( ";
    for (int i = 0; i < 2; ++i) {
      gate.enterTimer(poll);
      gate.yield();
    }
    course += ") ";
  };
  gate.enter(box);
  EXPECT_EQ(course, "box( tick tick ) ");
  loop.onTurn(1, [&] { gate.enter(box); });
  gate.enterTimer(poll);
  EXPECT_EQ(course, "box( tick tick ) box( tick tick ) ")
      << "the tick that was due ran while the box was open";
}

TEST_F(EventGateTest, WaitsByTheClockWhileOthersRun) {
  loop.at(300, [&] { gate.enter(says("key")); });
  gate.enter([&] {
    gate.waitUntil([&] { return loop.now() >= 1000; });
    course += "done";
  });
  EXPECT_EQ(course, "key done");
  EXPECT_LE(loop.turns(), 60) << "sleeps rather than spins";
}

TEST_F(EventGateTest, SaysThatTheUserClosesOrLeavesUntilThatHasRun) {
  gate.enter([&] {
    gate.enterClosing([] {});
    EXPECT_TRUE(gate.endsWaits() && !gate.leaving());
    gate.enterLeaving([&] { course += gate.leaving() ? "leaving " : "left "; });
    EXPECT_TRUE(gate.leaving());
    gate.yield();
    EXPECT_FALSE(gate.endsWaits());
  });
  EXPECT_EQ(course, "left ");
}

TEST_F(EventGateTest, ForgetsATimer) {
  gate.enter([&] {
    gate.enterTimer(poll);
    gate.forget(poll);
  });
  EXPECT_EQ(course, "");
}

TEST_F(EventGateTest, RunsIdleWorkOnceTheStackHasUnwound) {
  gate.enter([&] {
    gate.whenIdle([&] { course += gate.busy() ? "busy " : "idle "; });
    gate.enter(says("later"));
    gate.yield();
    course += "end ";
  });
  EXPECT_EQ(course, "later end idle ");
}

TEST_F(EventGateTest, EndsWithinATickAndLetsNothingInAnyMore) {
  bool cleaned = false;
  poll.onTick = [&] {
    gate.enter(says("dropped"));
    gate.end();
    gate.whenIdle([&] { cleaned = true; });
    EXPECT_TRUE(gate.ended() && gate.leaving());
    const int turns = loop.turns();
    gate.yield();
    gate.waitUntil([] { return false; });
    EXPECT_EQ(loop.turns(), turns);
    gate.enter(says("late"));
    course += "unwound ";
  };
  gate.enterTimer(poll);
  gate.enterTimer(poll);
  gate.enter(says("late"));
  EXPECT_EQ(course, "unwound ");
  EXPECT_TRUE(cleaned) << "retired windows are still destroyed";
}

}  // namespace
}  // namespace tarnvex::platform
