#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QTabWidget>
#include <QTimer>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "desktop/program.h"
#include "sample_log/sample_log.h"

/// Runs the program unattended for about twelve seconds, for machines without a display: prints the
/// panel's elements as text whenever they change and writes pictures of the window to the given
/// folder. The exit status is 0 if the panel has shown a reception.
namespace {

using tarnvex::desktop::Program;

constexpr int kLookMilliseconds = 20;
constexpr int kPictureMilliseconds = 1250;
constexpr int kRunMilliseconds = 12500;
/// The log is shown near the end, one page after the other.
constexpr int kLogMilliseconds = 10500;
constexpr int kPageMilliseconds = 900;

class Demo {
 public:
  Demo(Program& program, const QString& folder) : program_(program), folder_(folder) {
    // Twelve seconds make a short log, so yesterday is in it, too.
    program_.receptionStore.clear();
    tarnvex::tools::writeSampleDay(
        program_.receptionStore,
        QDate::currentDate().addDays(-1).startOfDay(Qt::UTC).toMSecsSinceEpoch());
    QObject::connect(&look_, &QTimer::timeout, [this] { printChanges(); });
    QObject::connect(&shoot_, &QTimer::timeout, [this] { takePicture(); });
    look_.start(kLookMilliseconds);
    shoot_.start(kPictureMilliseconds);
    QTimer::singleShot(kPictureMilliseconds / 2, [this] { takeSplash(); });
    QTimer::singleShot(kLogMilliseconds, [this] { openLog(); });
    QTimer::singleShot(kLogMilliseconds + kPageMilliseconds, [this] { takeLog("log-rows", 1); });
    QTimer::singleShot(kLogMilliseconds + 2 * kPageMilliseconds,
                       [this] { takeLog("log-picture", 0); });
    QTimer::singleShot(kRunMilliseconds, [this] { finish(); });
  }

  [[nodiscard]] bool cameAlive() const { return alive_; }

 private:
  [[nodiscard]] tarnvex::shell::MainForm* form() const { return program_.application.mainForm(); }

  [[nodiscard]] std::vector<std::string> panelLines() const {
    if (const auto* desk = dynamic_cast<tarnvex::shell::Form4*>(form())) {
      return describe(desk->panel);
    }
    if (const auto* handheld = dynamic_cast<tarnvex::shell::Form2*>(form())) {
      return describe(handheld->panel);
    }
    return {};
  }

  void printChanges() {
    std::map<std::string, std::string> now;
    for (const auto& line : panelLines()) {
      const std::size_t colon = line.find(':');
      now[line.substr(0, colon)] = line.substr(colon + 1);
    }
    for (const auto& [name, text] : now) {
      if (const auto old = shown_.find(name); old == shown_.end() || old->second != text) {
        std::printf("%s:%s\n", name.c_str(), text.c_str());
        alive_ = alive_ || (name == "Frequency" && text.find_first_of("0123456789") != text.npos);
      }
    }
    for (const auto& [name, text] : shown_) {
      if (!now.contains(name)) {
        std::printf("%s: off\n", name.c_str());
      }
    }
    std::fflush(stdout);
    shown_ = std::move(now);
  }

  void takeSplash() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == QLatin1String("Form1")) {
        save(window->grab(), QStringLiteral("0-splash"));
      }
    }
  }

  void openLog() {
    program_.gate.enter([this] {
      if (form() != nullptr) {
        form()->mnuReceptions();
      }
    });
  }

  /// Takes a picture of the log's current page and shows another one.
  void takeLog(const char* name, int next) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == QLatin1String("frmReceptionLog")) {
        save(window->grab(), QLatin1String(name));
        window->findChild<QTabWidget*>("pages")->setCurrentIndex(next);
      }
    }
  }

  /// Takes pictures of all pages in turn, the last ones in a dark palette.
  void takePicture() {
    auto* window = program_.windows.mainWindow();
    if (window == nullptr || form() == nullptr) {
      return;
    }
    ++pictures_;
    form()->SSTab1.setTab((pictures_ + 1) % 4);
    const bool dark = pictures_ >= 5;
    save(window->grab(), QStringLiteral("%1-%2").arg(pictures_).arg(
                             dark ? QStringLiteral("dark") : QStringLiteral("light")));
    if (pictures_ == 4) {
      QApplication::setPalette(darkPalette());
    }
  }

  static QPalette darkPalette() {
    QPalette palette(QColor(0x2B, 0x2B, 0x2D));
    palette.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x20));
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x26, 0x28));
    return palette;
  }

  void save(const QPixmap& picture, const QString& name) {
    picture.save(folder_ + QLatin1Char('/') + name + QStringLiteral(".png"));
  }

  void finish() {
    look_.stop();
    shoot_.stop();
    program_.gate.enter([this] { program_.application.mainForm()->unload(); });
  }

  Program& program_;
  QString folder_;
  QTimer look_;
  QTimer shoot_;
  std::map<std::string, std::string> shown_;
  int pictures_ = 0;
  bool alive_ = false;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QStringList arguments = QApplication::arguments();
  const QString folder = arguments.size() > 1 ? arguments[1] : QStringLiteral(".");
  QDir().mkpath(folder);
  Program program;
  const Demo demo(program, folder);
  const int status = program.run();
  if (!demo.cameAlive()) {
    std::fputs("The panel showed no reception.\n", stderr);
    return 1;
  }
  return status;
}
