// The devices behind the COM options: the drop-downs, and the report that lists them.
#include <QClipboard>
#include <QTest>

#include "desktop/ports/device_watcher.h"
#include "desktop/report.h"
#include "desktop/window_fixture.h"
#include "desktop/windows/com_option.h"
#include "support/fake_loop.h"

namespace tarnvex::test {
namespace {

using desktop::ComOption;
using desktop::DeviceSlots;
using desktop::FoundPort;

TEST(ComOption, OffersTheDevicesThereAreNow) {
  const QTemporaryDir folder;
  FakeSettings settings;
  FakeLoop loop;
  platform::EventGate gate(loop);
  QVector<FoundPort> found = {{"/dev/ttyUSB0", "/dev/serial/by-id/ftdi", "FTDI UART"},
                              {"/dev/ttyS0", "/dev/ttyS0", ""}};
  DeviceSlots devices(settings, [&] { return found; });
  platform::OptionButton model("Option1", "COM 1", true);
  desktop::Binder binder(gate);
  ComOption option(1, model, devices, binder);
  const std::unique_ptr<QComboBox> box(option.deviceBox());
  const auto offered = [&] {
    QStringList texts;
    for (int i = 0; i < box->count(); ++i) {
      texts << box->itemText(i);
    }
    return texts.join('|').toStdString();
  };
  EXPECT_EQ(offered(), "Automatic: ttyUSB0|FTDI UART (ttyUSB0)|ttyS0||Other...");
  emit box->activated(1);
  EXPECT_EQ(settings.values[std::pair("Ports", "COM1")], "/dev/serial/by-id/ftdi");
  EXPECT_EQ(box->currentIndex(), 1);

  // The device is unplugged: the choice stays, and the watcher reports the change.
  desktop::DeviceWatcher watcher(
      {folder.path()}, [&] { option.showDevices(); }, box.get());
  found = {{"/dev/ttyS0", "/dev/ttyS0", ""}};
  QFile(folder.filePath("ttyUSB0")).open(QIODevice::WriteOnly);
  EXPECT_TRUE(QTest::qWaitFor([&] { return box->currentText().contains("not there"); }));
  EXPECT_EQ(offered(), "Automatic: ttyS0|ttyS0|ftdi (not there)||Other...");
  EXPECT_EQ(box->currentIndex(), 2);
}

TEST(StablePath, IsTheLinkThatLeadsToTheDevice) {
  const QTemporaryDir folder;
  const QString device = QFileInfo(folder.path()).canonicalFilePath() + "/ttyUSB0";
  QFile(device).open(QIODevice::WriteOnly);
  const QString link = folder.filePath("by-id/usb-Maker_1");
  QDir(folder.path()).mkdir("by-id");
  QFile::link("../ttyUSB0", link);
  EXPECT_EQ(desktop::stablePath(device, folder.filePath("by-id")), link);
  EXPECT_EQ(desktop::stablePath("/dev/ttyS0", folder.filePath("by-id")), "/dev/ttyS0");
  EXPECT_EQ(desktop::stablePath(device, folder.filePath("no-such")), device);
}

TEST(Report, HasWhatTheMaintainersNeedAndNoMore) {
  const QTemporaryDir folder;
  desktop::IniSettings settings(folder.filePath("Tarnvex.conf"));
  settings.saveSetting("BC895", "LastFreqFile", QDir::homePath().toStdString() + "/city.tvf");
  settings.saveSetting("Ports", "COM1", "/dev/no-such");
  const DeviceSlots devices(settings, [] {
    return QVector<FoundPort>{{"/dev/ttyS0", "/dev/ttyS0", "Maker Adapter"}};
  });
  link::TrafficLog traffic;
  traffic.sent("SI\r");
  const QString report = desktop::makeReport({devices, settings, traffic, "Connected"});
  for (const char* wanted :
       {"Tarnvex 1.00", "Qt 6", "Line\nConnected", "COM 1: /dev/no-such (chosen, not there)",
        "COM 3: no device", "Found: Maker Adapter (ttyS0), /dev/ttyS0", "LastFreqFile=~/city.tvf",
        "> SI"}) {
    EXPECT_TRUE(report.contains(wanted)) << wanted << " isn't in\n" << report.toStdString();
  }
  EXPECT_FALSE(report.contains(QDir::homePath() + '/'));
}

TEST_F(Bc895Window, ShowsTheLineAndDimsTheDisplay) {
  const auto& label = find<QLabel>("LinkState");
  const auto glass = [&] {
    auto& panel = find<desktop::RadioPanel>("panel");
    return panel.grab().toImage().pixelColor(panel.elementRect("Frequency").topLeft()).lightness();
  };
  radio.answerAll("ERR");
  link.SendCommand("SI");
  EXPECT_EQ(label.text(), "Connected to BC895XLT on ttyUSB0");
  const int lit = glass();
  radio.answer = [](std::string_view) { return std::vector<Piece>{}; };
  link.SendCommand("SI");
  EXPECT_TRUE(label.text().startsWith("ttyUSB0: no reply since ")) << label.text().toStdString();
  EXPECT_LT(glass(), lit / 2);
  EXPECT_TRUE(find<desktop::RadioPanel>("panel").displayText().startsWith("Not live"));
}

}  // namespace
}  // namespace tarnvex::test
