#include <gtest/gtest.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QTimer>

#include "desktop/ports/qt_serial_port.h"
#include "desktop/test_line.h"
#include "desktop/turn_counter.h"
#include "link/scanner_link.h"
#include "support/fake_dialogs.h"
#include "support/fake_settings.h"

namespace tarnvex::test {
namespace {

using desktop::QtSerialPort;
using platform::Spins;

class SerialPortTest : public testing::Test {
 protected:
  SerialPortTest() { settings.values[{"Ports", "COM1"}] = line.path(); }

  void name(int slot, const std::string& path) {
    settings.values[{"Ports", "COM" + std::to_string(slot)}] = path;
  }
  std::string failureOf(const std::string& path) {
    name(2, path);
    QtSerialPort other(loop, gate, devices);
    other.setCommPort(2);
    const std::string failure = other.open().value_or("opened");
    EXPECT_EQ(other.portOpen(), failure == "opened") << path;
    return failure;
  }
  void later(int milliseconds, const std::function<void()>& act) {
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &context, act);
  }
  void turnFor(int milliseconds) {
    loop.waitUntil([] { return false; }, QDeadlineTimer(milliseconds));
  }

  FakeSettings settings;
  TestLine line;
  desktop::QtEventLoop loop;
  platform::EventGate gate{loop};
  desktop::DeviceSlots devices{settings};
  QtSerialPort port{loop, gate, devices};
  QObject context;
};

TEST_F(SerialPortTest, OpensTheDeviceOfItsSlotWithoutOldBytes) {
  line.send("stale\r");
  ASSERT_EQ(port.open(), std::nullopt);
  EXPECT_EQ(port.open(), "Port already open");
  port.setCommPort(3);
  EXPECT_EQ(port.commPort(), 1) << "an open port keeps its slot";
  turnFor(20);
  EXPECT_EQ(port.inBufferCount(), 0U);

  // Bytes of every value pass, and a rate that is set while the port is open takes effect at once.
  std::string bytes;
  for (int value = 0; value < 256; ++value) {
    bytes += static_cast<char>(value);
  }
  line.send(bytes);
  Spins budget{50000};
  ASSERT_TRUE(port.waitForInput(bytes.size(), budget));
  EXPECT_EQ(port.input(), bytes);
  port.output(bytes);
  EXPECT_TRUE(loop.waitUntil([&] { return line.received == bytes; }, QDeadlineTimer(5000)));
  port.setSettings("19200,n,8,1");
  EXPECT_EQ(line.baud(), 19200);
  port.setSettings("4800,n,8,1");
  EXPECT_EQ(line.baud(), 4800);
  port.setSettings("nonsense");
  EXPECT_EQ(line.baud(), 4800) << "an invalid rate leaves the line as it is";

  line.send("late\r");
  turnFor(20);
  EXPECT_EQ(port.inBufferCount(), 5U);
  port.discardInput();
  EXPECT_EQ(port.inBufferCount(), 0U);
  port.close();
  EXPECT_FALSE(port.portOpen());
}

TEST_F(SerialPortTest, SaysWhyADeviceCannotBeOpened) {
  EXPECT_EQ(failureOf("/dev/no-such-adapter"),
            "/dev/no-such-adapter does not exist. Is the adapter plugged in?");
  const QTemporaryDir folder;
  const std::string path = folder.path().toStdString();
  const std::string why = failureOf(path);
  EXPECT_TRUE(why.starts_with(path + " can't be opened: ")) << why;

  ASSERT_EQ(port.open(), std::nullopt);
  EXPECT_EQ(failureOf(line.path()), line.path() + " is in use by another program.");
  port.close();
  EXPECT_EQ(failureOf(line.path()), "opened") << "free again";

  const int missing = static_cast<int>(desktop::findPorts().size()) + 1;
  if (missing <= desktop::DeviceSlots::kSlots && missing > 1) {
    name(missing, "");
    port.setCommPort(missing);
    EXPECT_EQ(port.open(), "No serial device was found for COM " + std::to_string(missing) + ".");
  }
}

TEST_F(SerialPortTest, SaysThatTheUserHasNoPermission) {
  if (geteuid() == 0) {
    GTEST_SKIP() << "root may open everything";
  }
  const QTemporaryDir folder;
  QFile file(folder.filePath("port"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.setPermissions({}));
  const std::string why = failureOf(file.fileName().toStdString());
  EXPECT_NE(why.find("You don't have permission to use "), std::string::npos) << why;
}

TEST_F(SerialPortTest, WaitsForBytesWithinABudgetOfSpins) {
  Spins untouched{1000};
  EXPECT_FALSE(port.waitForInput(1, untouched)) << "closed";
  EXPECT_EQ(untouched.left, 1000);
  ASSERT_EQ(port.open(), std::nullopt);

  QElapsedTimer clock;
  clock.start();
  Spins silence{2500};
  EXPECT_FALSE(port.waitForInput(1, silence));
  EXPECT_LE(silence.left, 0);
  EXPECT_GE(clock.elapsed(), 99) << "2500 spins are 100 ms";

  // A reply in pieces: all of them share one budget, from which the time that they take is
  // subtracted.
  later(30, [&] { line.send("MD"); });
  later(60, [&] { line.send("00\r"); });
  Spins budget{72500};
  clock.start();
  ASSERT_TRUE(port.waitForInput(1, budget));
  EXPECT_EQ(port.input(), "MD");
  ASSERT_TRUE(port.waitForInput(3, budget));
  EXPECT_EQ(port.input(), "00\r");
  const double used = (72500 - budget.left) * 0.04;
  EXPECT_GE(used, 59.0);
  EXPECT_LE(used, static_cast<double>(clock.elapsed()) + 1);
  EXPECT_FALSE(port.waitForInput(1, silence)) << "without a budget there is no wait";

  // The port is closed during the wait, as when the program ends.
  later(10, [&] { port.close(); });
  EXPECT_FALSE(port.waitForInput(1, budget));
  EXPECT_GT(budget.left, 60000);
}

TEST_F(SerialPortTest, AWaitWithoutALimitEndsWhenTheUserLeaves) {
  ASSERT_EQ(port.open(), std::nullopt);
  std::vector<std::string> order;
  gate.enter([&] {
    later(5, [&] { gate.enter([&] { order.emplace_back("click"); }); });
    later(40, [&] { gate.enterLeaving([&] { order.emplace_back("connect"); }); });
    EXPECT_FALSE(port.waitForInput(1));
    EXPECT_TRUE(gate.leaving());
    order.emplace_back("left");
  });
  EXPECT_EQ(order, (std::vector<std::string>{"left", "click", "connect"}));
  EXPECT_FALSE(gate.leaving());
}

/// When the device goes away.
enum class Phase { Idle, FirstByte, MidReply, Unlimited };

class UnplugTest : public SerialPortTest, public testing::WithParamInterface<Phase> {
 protected:
  UnplugTest() { link.attachBc895({&port, &pollTimer}); }

  void unplugInPhase() {
    switch (GetParam()) {
      case Phase::Idle:
        line.unplug();
        EXPECT_LT(turnsWithin(loop, 100), 100);
        EXPECT_TRUE(port.portOpen()) << "for the core it is open until it is closed";
        EXPECT_EQ(link.SendCommand("MD"), "");
        return;
      case Phase::FirstByte:
        line.onReceived = [&] { line.unplug(); };
        EXPECT_EQ(link.SendCommand("MD"), "");
        return;
      case Phase::MidReply:
        // An incomplete text isn't an answer.
        line.onReceived = [&] {
          line.send("MD0");
          later(20, [&] { line.unplug(); });
        };
        EXPECT_EQ(link.SendCommand("MD"), "");
        EXPECT_EQ(link.SendCommand("LO"), "");
        return;
      case Phase::Unlimited:
        line.send("ID S");
        later(20, [&] { line.unplug(); });
        EXPECT_EQ(link.ReadReply(), "");
        EXPECT_EQ(link.SendCommand("MD"), "");
        return;
    }
  }

  FakeDialogs dialogs;
  platform::SharedState state;
  platform::Timer pollTimer{25};
  link::ScannerLink link{state, dialogs};
};

TEST_P(UnplugTest, GivesOneNoticeAndNoBusyLoopAndComesBack) {
  ASSERT_EQ(port.open(), std::nullopt);
  pollTimer.setEnabled(true);
  QElapsedTimer clock;
  clock.start();
  unplugInPhase();
  EXPECT_LT(clock.elapsed(), 2000) << "no wait for a device that is gone";
  EXPECT_EQ(dialogs.takeBoxes().size(), 1U);
  EXPECT_FALSE(port.portOpen());
  EXPECT_FALSE(pollTimer.enabled());
  EXPECT_EQ(link.SendCommand("MD"), "");
  EXPECT_LT(turnsWithin(loop, 200), 200);
  EXPECT_TRUE(dialogs.takeBoxes().empty());

  line.plugIn();
  line.onReceived = [&] { line.send("MD00\r"); };
  ASSERT_EQ(port.open(), std::nullopt);
  EXPECT_EQ(link.SendCommand("MD"), "MD00");
  EXPECT_TRUE(dialogs.takeBoxes().empty());
}

INSTANTIATE_TEST_SUITE_P(Phases, UnplugTest,
                         testing::Values(Phase::Idle, Phase::FirstByte, Phase::MidReply,
                                         Phase::Unlimited));

}  // namespace
}  // namespace tarnvex::test
