#include <gtest/gtest.h>

#include <QProcess>

#include "platform/version.h"

namespace tarnvex::test {
namespace {

struct Call {
  QStringList arguments;
  int status;
  QString said;
  QString complained;
};

/// The real program, without a display.
TEST(CommandLine, AnswersAndRefuses) {
  const QString version = QStringLiteral("Tarnvex ") + platform::version() + '\n';
  const std::vector<Call> calls = {
      {{"--version"}, 0, version, ""},
      {{"-v"}, 0, version, ""},
      {{"--help"}, 0, "Usage: tarnvex", ""},
      {{"--colour"}, 2, "", "unknown option \"--colour\""},
      {{"-platform=offscreen"}, 2, "", "unknown option \"-platform=offscreen\""},
      {{"-platform", "offscreen", "-style=Fusion", "-reverse", "plan.tvf"},
       2,
       "",
       "unknown argument \"plan.tvf\""},
  };
  for (const Call& call : calls) {
    SCOPED_TRACE(qPrintable(call.arguments.join(' ')));
    QProcess program;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "none-such");
    program.setProcessEnvironment(environment);
    program.start(TARNVEX_PROGRAM, call.arguments);
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), call.status);
    EXPECT_EQ(QString(program.readAllStandardOutput()).left(call.said.size()), call.said);
    EXPECT_TRUE(QString(program.readAllStandardError()).contains(call.complained));
  }
}

}  // namespace
}  // namespace tarnvex::test
