// The devices behind the COM options: the drop-downs, and the report that lists them.
#include <QClipboard>
#include <QInputDialog>
#include <QProcess>
#include <QTest>

#include "desktop/ports/device_use.h"
#include "desktop/ports/device_watcher.h"
#include "desktop/report.h"
#include "desktop/window_fixture.h"
#include "desktop/windows/com_option.h"
#include "platform/version.h"
#include "radio/pseudo_terminal.h"
#include "support/fake_loop.h"

namespace tarnvex::test {
namespace {

using desktop::ComOption;
using desktop::DeviceSlots;
using desktop::FoundPort;

struct WatchedSettings : FakeSettings {
  void saveSetting(std::string_view section, std::string_view name,
                   std::string_view text) override {
    FakeSettings::saveSetting(section, name, text);
    platform::run(onSave);
  }
  std::function<void()> onSave;
};

class ComOptionTest : public testing::Test {
 protected:
  [[nodiscard]] std::string offered() const {
    QStringList texts;
    for (int i = 0; i < box->count(); ++i) {
      texts << box->itemText(i);
    }
    return texts.join('|').toStdString();
  }
  void activate(int index) {
    emit box->activated(index);
    QCoreApplication::processEvents();
  }
  [[nodiscard]] std::string stored() { return settings.getSetting("Ports", "COM1", "nothing"); }

  WatchedSettings settings;
  FakeLoop loop;
  platform::EventGate gate{loop};
  QVector<FoundPort> found = {{"/dev/ttyUSB0", "/dev/serial/by-id/ftdi", "FTDI UART"},
                              {"/dev/ttyS0", "/dev/ttyS0", ""}};
  DeviceSlots devices{settings, [this] { return found; }};
  platform::OptionButton model{"Option1", "COM 1", true};
  desktop::Binder binder{gate};
  std::unique_ptr<ComOption> option = std::make_unique<ComOption>(1, model, devices, binder);
  const std::unique_ptr<QComboBox> box{option->deviceBox()};
};

TEST_F(ComOptionTest, OffersTheDevicesThereAreNow) {
  const QTemporaryDir folder;
  EXPECT_EQ(offered(), "Automatic: ttyUSB0|FTDI UART (ttyUSB0)|ttyS0||Other...");
  activate(1);
  EXPECT_EQ(stored(), "/dev/serial/by-id/ftdi");
  EXPECT_EQ(box->currentIndex(), 1);

  // The device is unplugged: the choice stays, and the watcher reports the change.
  desktop::DeviceWatcher watcher(
      {folder.path()}, [&] { option->showDevices(); }, box.get());
  found = {{"/dev/ttyS0", "/dev/ttyS0", ""}};
  QFile(folder.filePath("ttyUSB0")).open(QIODevice::WriteOnly);
  EXPECT_TRUE(QTest::qWaitFor([&] { return box->currentText().contains("not there"); }));
  EXPECT_EQ(offered(), "Automatic: ttyS0|ttyS0|ftdi (not there)||Other...");
  EXPECT_EQ(box->currentIndex(), 2);
}

TEST_F(ComOptionTest, ActsOnlyOnAChoiceFromTheOpenList) {
  box->show();
  for (const auto key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_End, Qt::Key_PageDown, Qt::Key_T}) {
    QTest::keyClick(box.get(), key);
    EXPECT_EQ(box->view()->isVisible(), key == Qt::Key_Up || key == Qt::Key_Down) << key;
    box->hidePopup();
  }
  QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(box.get(), &wheel);
  QCoreApplication::processEvents();
  EXPECT_EQ(box->currentIndex(), 0);
  EXPECT_EQ(stored(), "nothing");
  box->showPopup();
  QTest::keyClick(box->view(), Qt::Key_Down);
  QTest::keyClick(box->view(), Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(stored(), "/dev/serial/by-id/ftdi");
}

TEST_F(ComOptionTest, TakesAPathThatIsTyped) {
  activate(box->count() - 1);
  EXPECT_EQ(stored(), "nothing");
  auto* dialog = option->findChild<QInputDialog*>();
  ASSERT_NE(dialog, nullptr);
  dialog->setTextValue(" /dev/pts/7 ");
  dialog->accept();
  QCoreApplication::processEvents();
  EXPECT_EQ(stored(), "/dev/pts/7");
  EXPECT_EQ(box->currentText(), "7 (not there)");
}

TEST_F(ComOptionTest, RecognisesTheDeviceThatComesBack) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("ttyUSB0");
  found = {{path, path, ""}};
  EXPECT_FALSE(option->leadsTo("ttyUSB0"));
  QFile(path).open(QIODevice::WriteOnly);
  EXPECT_TRUE(option->leadsTo("ttyUSB0"));
  EXPECT_FALSE(option->leadsTo("ttyUSB1")) << "any other device that is there";
  devices.setDevice(1, path);
  EXPECT_TRUE(option->leadsTo("ttyUSB1")) << "the same adapter under another name";
  model.setValue(false);
  EXPECT_FALSE(option->leadsTo("ttyUSB0"));
}

TEST_F(ComOptionTest, MayGoWhileAMessageAboutTheSettingsIsOpen) {
  settings.onSave = [&] {
    EXPECT_TRUE(gate.busy()) << "the form below must stay until this is over";
    gate.enter([&] { option.reset(); });
  };
  activate(2);
  EXPECT_EQ(option, nullptr);
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

/// The home folder for the time of a test.
class Home : private platform::NonCopyable {
 public:
  explicit Home(const char* folder) : before_(qgetenv("HOME")) { qputenv("HOME", folder); }
  ~Home() { qputenv("HOME", before_); }

 private:
  QByteArray before_;
};

TEST(Report, HasWhatTheMaintainersNeedAndNoMore) {
  const Home home("/home/jo");
  const QTemporaryDir folder;
  desktop::IniSettings settings(folder.filePath("Tarnvex.conf"));
  settings.saveSetting("BC895", "LastFreqFile", "/home/jo/city.tvf");
  settings.saveSetting("BC245", "LastFreqFile", "/home/john/a.tvf");
  settings.saveSetting("Ports", "COM1", "/dev/no-such");
  const radio::PseudoTerminal line(9600);
  const QString path = QString::fromStdString(line.path());
  const DeviceSlots devices(settings, [&] {
    return QVector<FoundPort>{{path, path, "Maker Adapter"}};
  });
  link::TrafficLog traffic;
  traffic.sent("SI\r");
  const auto report = [&] {
    return desktop::makeReport({devices, settings, traffic, "Connected"});
  };
  for (const QString& wanted :
       QStringList{QString("Tarnvex ") + platform::version(), "Qt 6", "Line\nConnected",
                   "COM 1: /dev/no-such (chosen, not there)", "COM 3: no device",
                   "Found: Maker Adapter (" + QFileInfo(path).fileName() + "), " + path + " (",
                   "=~/city.tvf", "=/home/john/a.tvf", "> SI"}) {
    EXPECT_TRUE(report().contains(wanted)) << wanted.toStdString() << " isn't in\n"
                                           << report().toStdString();
  }
  qputenv("HOME", "");
  EXPECT_TRUE(report().contains("=/home/jo/city.tvf"));
}

TEST(DeviceUse, TellsWhoHasADevice) {
  const QTemporaryDir folder("/dev/shm/XXXXXX");
  const QString path = folder.filePath("device");
  QFile ours(path);
  ASSERT_TRUE(ours.open(QIODevice::ReadWrite));
  const auto use = [&] { return desktop::DeviceUse().of(path).toStdString(); };
  EXPECT_EQ(use(), "in use by Tarnvex");
  ours.close();
  QProcess other;
  other.setStandardInputFile(path);
  other.start("sleep", {"600"});
  ASSERT_TRUE(other.waitForStarted());
  EXPECT_EQ(use(), "in use by another program");
  other.kill();
  other.waitForFinished();
  EXPECT_EQ(use(), "apparently free");
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
