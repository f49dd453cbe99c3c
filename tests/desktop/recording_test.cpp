// Recordings from a sound server of the test's own.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QTest>
#include <csignal>
#include <random>

#include "desktop/program_rig.h"
#include "desktop/sound_server.h"
#include "platform/non_copyable.h"

namespace tarnvex::test {
namespace {

using platform::MediaCommand;

QStringList wavesIn(const QTemporaryDir& folder) {
  return QDir(folder.path()).entryList({"*.wav"}, QDir::Files, QDir::Name);
}

/// What the main window's REC shows.
QString light(ProgramRig& rig) {
  const auto* label = rig.program.windows.mainWindow()->findChild<QLabel*>("recordingLight");
  return label->isVisible() ? label->text() : QString();
}

bool holdsSound(const QString& path, double seconds) {
  return listen(path).seconds >= seconds;
}

TEST(Recordings, HoldTheSoundOfEachReception) {
  const SoundServer server;
  ProgramRig rig;
  QElapsedTimer clock;
  double recorded = 0;
  const auto recording = [&](bool on) {
    return [&, on] { return rig.program.state.Recording == on; };
  };
  const auto newest = [&] { return rig.folder.filePath(wavesIn(rig.folder).last()); };
  rig.play({
      {"scanning", rig.bc895("Frequency: Scanning"),
       [&] {
         rig.program.windows.mainWindow()->findChild<QCheckBox*>("chkRecord")->click();
         rig.form()->MSFlexGrid1.setTextMatrix(1, 1, "155.1150");
         rig.form()->MSFlexGrid1.setTextMatrix(1, 7, "Fire/EMS: \x80");
         rig.radio.say("reception 1 2");
       }},
      {"the recording", recording(true), [&] { clock.start(); }},
      {"the light", [&] { return light(rig).startsWith("REC 0:0"); }},
      {"a second of sound, while it runs",
       [&] { return !wavesIn(rig.folder).isEmpty() && holdsSound(newest(), 1); },
       [&] { EXPECT_TRUE(rig.program.state.Recording); }},
      {"its end", recording(false),
       [&] {
         recorded = static_cast<double>(clock.elapsed()) / 1000;
         rig.radio.say("reception 2 1");
       }},
      {"another reception", [&] { return wavesIn(rig.folder).size() == 2; }},
      {"its end", recording(false)},
  });
  const QStringList files = wavesIn(rig.folder);
  ASSERT_EQ(files.size(), 2);
  const QRegularExpression name(
      QStringLiteral("^Fire-EMS\\. \u20AC-\\d{4}-\\d\\d-\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d\\.wav$"));
  const QString tagged = files.filter(name).value(0);
  ASSERT_FALSE(tagged.isEmpty()) << files.join('\n').toStdString();
  const Heard heard = listen(rig.folder.filePath(tagged));
  EXPECT_TRUE(heard.playable && heard.sixteenBit);
  EXPECT_NEAR(heard.hertz, SoundServer::kDefaultHertz, 2);
  EXPECT_GE(heard.seconds, 1);
  EXPECT_NEAR(heard.seconds, recorded, 0.5) << "as long as the display showed it";
  EXPECT_EQ(rig.silences, 0);
}

TEST(Recordings, AreReportedOnceIfThereIsNoSound) {
  ProgramRig rig;
  rig.play({
      {"scanning", rig.bc895("Frequency: Scanning"),
       [&] {
         rig.program.windows.mainWindow()->findChild<QCheckBox*>("chkRecord")->click();
         rig.radio.say("reception 1 2");
       }},
      {"the recording", [&] { return rig.program.state.Recording; }},
      {"its ticks", rig.polled(), [&] { EXPECT_EQ(light(rig), "") << "nothing is recorded"; }},
      {"the message", rig.boxShows("Audio Record Error Occurred")},
      {"the poll goes on meanwhile", rig.polled(), [&] { rig.press(QMessageBox::Ok); }},
      {"no more", [&] { return rig.box() == nullptr; },
       [&] {
         EXPECT_FALSE(rig.form()->recording.chkRecord.value());
         rig.radio.say("reception 1 2");
       }},
      {"a reception", rig.panelShows("Frequency: 155.1150")},
      {"and its poll", rig.polled(), [&] { EXPECT_FALSE(rig.program.state.Recording); }},
  });
  EXPECT_TRUE(wavesIn(rig.folder).isEmpty());
}

TEST(Recordings, SayWhatIsMissing) {
  desktop::QtEventLoop loop;
  desktop::SoundRecorder recorder(loop);
  const auto look = [&] {
    std::optional<std::string> missing;
    recorder.lookForSound([&](const std::string& what) { missing = what; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return missing.has_value(); }, 10000));
    return missing.value_or("no answer");
  };
  EXPECT_EQ(look(), "No sound server: nothing will be recorded.");
  for (const auto& [sources, said] :
       {std::pair{SoundServer::Sources::None, "No sound input: nothing will be recorded."},
        {SoundServer::Sources::Monitor,
         "No sound input; only this computer's own output can be recorded."}}) {
    const SoundServer server(sources);
    EXPECT_EQ(look(), said);
  }
  const SoundServer server;
  EXPECT_EQ(look(), "");
  for (int hasty = 0; hasty < 20; ++hasty) {
    recorder.lookForSound([](const std::string&) { ADD_FAILURE() << "an older look"; });
  }
  EXPECT_EQ(look(), "");
}

struct Recorder : testing::Test {
  void start(const std::string& directory, const std::string& name = "take.wav") {
    recorder.setFileName(directory, name);
    recorder.command(MediaCommand::Open);
    recorder.command(MediaCommand::Record);
  }
  std::string stop() {
    recorder.command(MediaCommand::Stop);
    recorder.command(MediaCommand::Save);
    const std::string error = recorder.errorMessage();
    recorder.command(MediaCommand::Close);
    return error;
  }
  [[nodiscard]] QString path(const char* name = "take.wav") const { return folder.filePath(name); }
  [[nodiscard]] std::string directory() const { return folder.path().toStdString(); }

  SoundServer server;
  QTemporaryDir folder;
  desktop::QtEventLoop loop;
  desktop::SoundRecorder recorder{loop};
};

TEST_F(Recorder, NeverWritesOverAFile) {
  for (int take = 0; take < 3; ++take) {
    start(directory());
    EXPECT_EQ(stop(), "");
  }
  EXPECT_EQ(wavesIn(folder), (QStringList{"take (2).wav", "take (3).wav", "take.wav"}));
  for (const QString& name : wavesIn(folder)) {
    EXPECT_TRUE(listen(folder.filePath(name)).playable) << "however short it is";
  }
}

TEST_F(Recorder, SaysWhyAFileCantBeMade) {
  for (const auto& [directory, name, word] :
       {std::tuple{this->directory() + "/none", std::string("take.wav"), "No such file"},
        {this->directory(), std::string(300, 'x') + ".wav", "File name too long"},
        {std::string("/dev/null"), std::string("take.wav"), "Not a directory"}}) {
    start(directory, name);
    EXPECT_NE(stop().find(word), std::string::npos) << directory;
  }
  EXPECT_TRUE(QDir(folder.path()).isEmpty());
  start(this->directory());
  EXPECT_EQ(stop(), "") << "the next recording isn't affected";
}

TEST_F(Recorder, KeepsWhatItHasWhenTheSoundEnds) {
  start(directory());
  ASSERT_TRUE(QTest::qWaitFor([&] { return holdsSound(path(), 0.2); }, 20000));
  server.kill();
  EXPECT_NE(stop(), "");
  EXPECT_TRUE(holdsSound(path(), 0.2));
}

/// While this exists, no file can grow beyond a limit.
class FullDisk : private platform::NonCopyable {
 public:
  explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit limit = before_;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  void (*handler_)(int);
  rlimit before_{};
};

TEST_F(Recorder, KeepsWhatItHasWhenTheDiskIsFull) {
  std::string error;
  {
    const FullDisk disk(10000);
    start(directory());
    // Not a whole number of pieces: the last bytes are part of the piece that didn't fit.
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFileInfo(path()).size() == 10000; }, 20000));
    error = stop();
  }
  EXPECT_NE(error, "");
  const Heard heard = listen(path());
  EXPECT_TRUE(heard.playable);
  EXPECT_GT(heard.seconds, 0.15);
}

TEST_F(Recorder, LeavesAPlayableFileWheneverItIsKilled) {
  constexpr int kKills = 100;
  constexpr int kAtOnce = 10;
  std::mt19937 chance(895);
  for (int first = 0; first < kKills; first += kAtOnce) {
    std::vector<std::unique_ptr<QProcess>> recorders;
    for (int i = first; i < first + kAtOnce; ++i) {
      recorders.push_back(std::make_unique<QProcess>());
      recorders.back()->start(QStringLiteral(TARNVEX_TEST_RECORDER),
                              {folder.path(), QStringLiteral("%1.wav").arg(i)});
    }
    for (int i = first; i < first + kAtOnce; ++i) {
      const QString file = folder.filePath(QStringLiteral("%1.wav").arg(i));
      ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(file); }, 20000)) << i;
      QTest::qWait(static_cast<int>(chance() % 30));
      recorders[static_cast<std::size_t>(i - first)]->kill();
    }
    for (const auto& recorder : recorders) {
      EXPECT_TRUE(recorder->state() == QProcess::NotRunning || recorder->waitForFinished(10000));
    }
  }
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), kKills);
  for (const QString& name : wavesIn(folder)) {
    EXPECT_TRUE(listen(folder.filePath(name)).playable) << name.toStdString();
  }
}

}  // namespace
}  // namespace tarnvex::test
