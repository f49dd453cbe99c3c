// The time from the start of a process to the painted splash, and the memory of the running
// program.
#include <QApplication>
#include <QFile>
#include <QProcess>
#include <cstdio>

#include "bench/line.h"
#include "bench/measure.h"
#include "desktop/program_rig.h"

namespace tarnvex::bench {

namespace {

/// Prints a line when the splash has been painted.
class SplashWatch : public QObject {
 public:
  explicit SplashWatch(desktop::Program& program) : program_(program) {
    qApp->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && watched->objectName() == QLatin1String("Form1")) {
      QMetaObject::invokeMethod(
          this,
          [this] {
            std::puts("painted");
            std::fflush(stdout);
            program_.gate.end();
            program_.loop.leave();
          },
          Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  desktop::Program& program_;
};

/// The peak memory of a process in MiB.
double peakMemory(qint64 process) {
  QFile status(QStringLiteral("/proc/%1/status").arg(process));
  if (status.open(QIODevice::ReadOnly)) {
    for (const QByteArray& line : status.readAll().split('\n')) {
      if (line.startsWith("VmHWM:")) {
        return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
      }
    }
  }
  return kNotTaken;
}

/// The peak memory in MiB of a run that ends when the radio's log has `logged` bytes.
double memoryOfARun(const Radio& radio, qint64 logged) {
  const QTemporaryDir folder;
  const QString line = folder.filePath("line");
  const QString log = folder.filePath("log");
  const test::RadioProcess process(
      {"--model", radio.argument, "--scene", "city", "--link", line, "--log", log});
  desktop::IniSettings(folder.filePath("Tarnvex/Tarnvex.conf"))
      .saveSetting("Ports", "COM1", line.toStdString());
  QProcess program;
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert("XDG_CONFIG_HOME", folder.path());
  environment.insert("XDG_DATA_HOME", folder.path());
  program.setProcessEnvironment(environment);
  program.start(QStringLiteral(TARNVEX_PROGRAM), QStringList());
  // Lets it poll for a while.
  const auto start = Clock::now();
  while (millisecondsSince(start) < 30000 && QFile(log).size() < logged) {
    program.waitForFinished(50);
  }
  const double peak = peakMemory(program.processId());
  program.kill();
  program.waitForFinished();
  return peak;
}

}  // namespace

int showSplash() {
  const QTemporaryDir folder;
  desktop::Program program(folder.filePath("settings"));
  const SplashWatch watch(program);
  return program.run();
}

void benchStart(Table& table) {
  std::vector<double> times;
  for (int i = 0; i < table.choose(7, 3); ++i) {
    QProcess splash;
    const auto start = Clock::now();
    splash.start(QCoreApplication::applicationFilePath(), {"--splash"});
    const bool painted = splash.waitForReadyRead(20000);
    times.push_back(painted ? millisecondsSince(start) : kNotTaken);
    splash.waitForFinished();
  }
  table.atMost("start to painted splash, median", quantile(times, 0.5), 100, "ms");
  for (const Radio& radio : kRadios) {
    table.note(std::string(radio.name) + " peak memory of the polling program",
               memoryOfARun(radio, table.choose(20000, 4000)), "MiB");
  }
}

}  // namespace tarnvex::bench
