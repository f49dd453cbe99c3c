#include "desktop/command_line.h"

#include <cstdio>

#include "platform/version.h"

namespace tarnvex::desktop {
namespace {

constexpr int kWrongUse = 2;

constexpr const char* kHelp =
    R"(Usage: tarnvex [OPTION]
Mirrors and controls a BC895XLT or BC245XLT scanner over a serial line.

  -h, --help     Show this help and exit.
  -v, --version  Show the version and exit.

The options of every Qt program work too, such as "-platform" and "-style".
"man tarnvex" lists the files that the program uses.
)";

bool asksFor(const QString& argument, QLatin1Char letter, QLatin1String word) {
  return argument == QLatin1Char('-') + QString(letter) || argument == QLatin1String("--") + word;
}

}  // namespace

std::optional<int> answerQuestion(const QStringList& arguments) {
  for (const QString& argument : arguments) {
    if (asksFor(argument, QLatin1Char('v'), QLatin1String("version"))) {
      std::printf("Tarnvex %s\n", platform::version());
      return 0;
    }
    if (asksFor(argument, QLatin1Char('h'), QLatin1String("help"))) {
      std::fputs(kHelp, stdout);
      return 0;
    }
  }
  return std::nullopt;
}

std::optional<int> refuseArguments(const QStringList& arguments) {
  if (arguments.isEmpty()) {
    return std::nullopt;
  }
  const QString& first = arguments.first();
  const char* kind = first.startsWith(QLatin1Char('-')) ? "option" : "argument";
  std::fprintf(stderr, "tarnvex: unknown %s \"%s\". Try \"tarnvex --help\".\n", kind,
               qPrintable(first));
  return kWrongUse;
}

}  // namespace tarnvex::desktop
