#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <set>

#include "desktop/ports/device_slots.h"
#include "desktop/ports/ini_settings.h"
#include "desktop/ports/text.h"
#include "support/failing_calls.h"
#include "support/fake_settings.h"

namespace tarnvex::test {
namespace {

using desktop::DeviceSlots;
using desktop::fromScreen;
using desktop::IniSettings;
using desktop::toScreen;

TEST(IniSettings, KeepsTextsOfAnyKindAndWritesNothingBeforeTheFirst) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("Tarnvex/Tarnvex.conf");
  const std::vector<std::array<std::string, 3>> values = {
      {"Options", "COM", "1"},
      {"Multiscan", "0", "0"},
      {"Colors", "Backcolor", "8454143"},
      {"BC895", "LastFreqFile", "/home/j\xF6rg/plans; old, \"new\" = 100%.tvf"},
      {"BC245", "LastFreqFile", ""},
      {"BC245", "QVLeft", " -15.5 "},
      {"Ports", "COM1", "/dev/serial/by-id/usb-A&B_\\x41"},
      {"Ports", "COM2", "@Invalid()"},
      {"BC895", "Baudrate", "true"},
  };
  {
    IniSettings settings(path);
    EXPECT_EQ(settings.getSetting("Options", "COM", "fallback"), "fallback");
    EXPECT_EQ(settings.getSetting("Options", "", ""), "");
  }
  EXPECT_TRUE(QDir(folder.path()).isEmpty()) << "reading leaves nothing behind";
  {
    IniSettings settings(path);
    for (const auto& [section, name, text] : values) {
      settings.saveSetting(section, name, text);
      EXPECT_TRUE(QFile::exists(path)) << "written at once";
      EXPECT_EQ(IniSettings(path).getSetting(section, name, "?"), text);
    }
    settings.saveSetting("Options", "COM", "2");
  }
  const IniSettings again(path);
  for (const auto& [section, name, text] : values) {
    EXPECT_EQ(again.getSetting(section, name, "?"), name == "COM" ? "2" : text) << name;
  }
  EXPECT_EQ(again.getSetting("options2", "COM", "?"), "?");
}

TEST(IniSettings, LosesOnlyTheValueThatItCannotWrite) {
  const QTemporaryDir folder;
  QFile blocker(folder.filePath("Tarnvex"));
  ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
  IniSettings settings(folder.filePath("Tarnvex/Tarnvex.conf"));
  settings.saveSetting("Options", "COM", "2");
  EXPECT_EQ(settings.getSetting("BC895", "Baudrate", "9600"), "9600");
}

TEST(IniSettings, AreWrittenWholeOrNotAtAll) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("Tarnvex.conf");
  const auto onDisk = [&] { return IniSettings(path).allText(); };
  const QString before = "Options/COM=1\n";
  std::set<std::string> kinds;
  std::string failed = "none yet";
  for (int n = 1; !failed.empty(); ++n) {
    QFile::remove(path);
    IniSettings(path).saveSetting("Options", "COM", "1");
    FailingCalls calls;
    calls.failAt = n;
    IniSettings settings(path, calls);
    int told = 0;
    settings.onFailure = [&](const std::string&) { ++told; };
    settings.saveSetting("BC895", "Baudrate", "4800");
    failed = calls.failed;
    kinds.insert(failed);
    // Not every call that fails keeps the file from being saved.
    const QString after = before + "BC895/Baudrate=4800\n";
    EXPECT_TRUE(onDisk() == after || (onDisk() == before && told == 1)) << n << failed;
    EXPECT_EQ(settings.getSetting("BC895", "Baudrate", ""), "4800") << "it counts all the same";
    // Another program saves, and then this one again.
    IniSettings(path).saveSetting("Options", "Keybeep", "0");
    settings.saveSetting("BC895", "LastFreqFile", "a.tvf");
    EXPECT_EQ(onDisk(),
              "Options/COM=1\nOptions/Keybeep=0\nBC895/Baudrate=4800\n"
              "BC895/LastFreqFile=a.tvf\n")
        << n << failed;
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1) << n << failed;
  }
  EXPECT_TRUE(kinds.contains("read") && kinds.contains("write") && kinds.contains("rename"));
}

TEST(DeviceSlots, TakesTheNamedDeviceAndOtherwiseTheFoundOnes) {
  FakeSettings settings;
  const QVector<desktop::FoundPort> found = {{"/dev/ttyUSB0", "/dev/serial/by-id/one", "One"},
                                             {"/dev/ttyS0", "/dev/ttyS0", ""}};
  DeviceSlots devices(settings, [&] { return found; });
  for (int slot = 1; slot <= DeviceSlots::kSlots; ++slot) {
    EXPECT_EQ(devices.device(slot), slot <= found.size() ? found[slot - 1].path : QString());
    EXPECT_FALSE(devices.isNamed(slot));
  }
  for (const int slot : {0, 5, -1}) {
    EXPECT_EQ(devices.device(slot), slot == 5 && found.size() > 4 ? found[4].path : QString());
  }
  const QString path = QStringLiteral("/dev/serial/by-id/\u00FCmlaut");
  devices.setDevice(2, path);
  EXPECT_EQ(devices.device(2), path);
  EXPECT_TRUE(devices.isNamed(2));
  EXPECT_FALSE(devices.isNamed(1));
  EXPECT_EQ(settings.saved.back().section, "Ports");
  EXPECT_EQ(settings.saved.back().name, "COM2");
  devices.setDevice(2, {});
  EXPECT_FALSE(devices.isNamed(2));
}

TEST(Text, HasOneByteACharacterBothWays) {
  for (int value = 0; value < 256; ++value) {
    const std::string text(1, static_cast<char>(value));
    bool dropped = true;
    EXPECT_EQ(toScreen(text).size(), 1) << value;
    EXPECT_EQ(fromScreen(toScreen(text), &dropped), text) << value;
    EXPECT_FALSE(dropped) << value;
  }
  EXPECT_EQ(toScreen("\x80 \x93x\x94 \xE4"), QStringLiteral("\u20AC \u201Cx\u201D \u00E4"));
}

TEST(Text, DropsWhatTheCodePageLacks) {
  const std::vector<std::tuple<QString, std::string, bool>> cases = {
      {QString(), "", false},
      {QStringLiteral("Caf\u00E9"), "Caf\xE9", false},
      {QStringLiteral("\u0434a\u4E2Db"), "ab", true},
      {QStringLiteral("x\U0001F4FBy"), "xy", true},
      {QStringLiteral("\u0080"), "", true},
      {QStringLiteral("\uFFFD"), "", true},
  };
  for (const auto& [text, bytes, dropping] : cases) {
    bool dropped = !dropping;
    EXPECT_EQ(fromScreen(text, &dropped), bytes) << text.toStdString();
    EXPECT_EQ(dropped, dropping) << text.toStdString();
  }
}

}  // namespace
}  // namespace tarnvex::test
