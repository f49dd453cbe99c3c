// The program with a user who acts at random and a line that fails.
#include "desktop/monkey.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QPalette>

#include "platform/non_copyable.h"

namespace tarnvex::test {
namespace {

constexpr int kEvents = 7000;

/// For the time of a test: the user's folders, the working directory and Qt's messages.
class Surroundings : private platform::NonCopyable {
 public:
  explicit Surroundings(const QString& home) : palette_(QApplication::palette()) {
    for (const char* name : kFolders) {
      former_.push_back(qgetenv(name));
      qputenv(name, home.toLocal8Bit());
    }
    QDir::setCurrent(home);
    warnings.clear();
    handler_ = qInstallMessageHandler(&Surroundings::hear);
  }
  ~Surroundings() {
    qInstallMessageHandler(handler_);
    for (std::size_t i = 0; i < std::size(kFolders); ++i) {
      former_[i].isNull() ? qunsetenv(kFolders[i]) : qputenv(kFolders[i], former_[i]);
    }
    QDir::setCurrent(work_);
    QApplication::setPalette(palette_);
  }

  /// Each warning with the actions before it.
  static inline QMap<QString, std::string> warnings;
  static inline std::function<std::string()> trail;

 private:
  static constexpr const char* kFolders[] = {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                                             "XDG_CACHE_HOME"};

  static void hear(QtMsgType type, const QMessageLogContext& /*where*/, const QString& text) {
    if (type == QtFatalMsg) {
      std::fprintf(stderr, "%s\n%s", qPrintable(text), trail ? trail().c_str() : "");
    }
    // The platform without a screen complains about window frames and size hints, which it doesn't
    // have.
    if (type != QtDebugMsg && type != QtInfoMsg &&
        !text.startsWith("This plugin does not support") && !warnings.contains(text)) {
      warnings[text] = trail ? trail() : "";
    }
  }

  std::vector<QByteArray> former_;
  QString work_ = QDir::currentPath();
  QPalette palette_;
  QtMessageHandler handler_ = nullptr;
};

QStringList filesIn(const QString& folder) {
  QStringList found;
  for (QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
       files.hasNext();) {
    found << files.next();
  }
  return found;
}

class MonkeyTest : public testing::TestWithParam<unsigned> {};

TEST_P(MonkeyTest, NeitherBreaksNorStopsTheProgram) {
  const QByteArray given = qgetenv("TARNVEX_MONKEY_SEED");
  const unsigned seed = given.isEmpty() ? GetParam() : given.toUInt();
  const int events = qEnvironmentVariableIsSet("TARNVEX_MONKEY_EVENTS")
                         ? qEnvironmentVariableIntValue("TARNVEX_MONKEY_EVENTS")
                         : kEvents;
  SCOPED_TRACE("seed " + std::to_string(seed));
  const QTemporaryDir home;
  const QTemporaryDir own;
  QFile::copy(TARNVEX_DEMO "/demo.tvf", own.filePath("a.tvf"));
  QFile list(own.filePath("Searchlist.txt"));
  ASSERT_TRUE(list.open(QIODevice::WriteOnly));
  list.write("0,118,136.975,\"Aircraft\"\r\n1,144,148,\"2 m\"\r\n");
  list.close();
  const Surroundings surroundings(home.path());
  {
    NoisyLine line(seed % 2 == 0 ? radio::Model::BC245XLT : radio::Model::BC895XLT, seed);
    desktop::Program program(own.filePath("Tarnvex.conf"), own.path(),
                             [&line] { return line.create(); });
    Monkey monkey(program, line, own.path(), seed);
    Surroundings::trail = [&] { return monkey.trail(); };
    monkey.play(events);
    EXPECT_FALSE(program.gate.busy());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    Surroundings::trail = {};
  }
  for (auto warning = Surroundings::warnings.begin(); warning != Surroundings::warnings.end();
       ++warning) {
    ADD_FAILURE() << warning.key().toStdString() << "\n" << warning.value();
  }
  for (const QString& file : filesIn(home.path())) {
    // Qt's file dialog remembers its size.
    EXPECT_TRUE(file.endsWith("/QtProject.conf")) << file.toStdString();
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, MonkeyTest, testing::Values(1U, 2U, 3U),
                         [](const auto& info) { return "Seed" + std::to_string(info.param); });

}  // namespace
}  // namespace tarnvex::test
