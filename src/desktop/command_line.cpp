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

/// Without its dashes. Empty if it isn't an option.
QString optionName(const QString& argument) {
  const qsizetype dashes = argument.startsWith(QLatin1String("--")) ? 2
                           : argument.startsWith(QLatin1Char('-'))  ? 1
                                                                    : argument.size();
  return argument.mid(dashes);
}

/// Qt's options without and with a value, which follows as another argument or, for some, after
/// "=". Qt knows them itself only once it has a display.
constexpr const char* kQtSwitches = "reverse widgetcount nograb dograb testability";
constexpr const char* kQtJoinedSettings = "style stylesheet qmljsdebugger";
constexpr const char* kQtSettings =
    "platform platformpluginpath platformtheme plugin qwindowgeometry geometry qwindowtitle title "
    "qwindowicon icon session style stylesheet display name qmljsdebugger";

bool isOneOf(const char* names, const QString& name) {
  return QString::fromLatin1(names).split(QLatin1Char(' ')).contains(name);
}

/// How many arguments an option of Qt's takes, itself included. 0 if it isn't one.
int takenByQt(const QString& argument) {
  const QString option = optionName(argument);
  const QString joined =
      option.contains(QLatin1Char('=')) ? option.section(QLatin1Char('='), 0, 0) : QString();
  return isOneOf(kQtSettings, option)                                         ? 2
         : isOneOf(kQtSwitches, option) || isOneOf(kQtJoinedSettings, joined) ? 1
                                                                              : 0;
}

int refuse(const QString& argument) {
  const char* kind = argument.startsWith(QLatin1Char('-')) ? "option" : "argument";
  std::fprintf(stderr, "tarnvex: unknown %s \"%s\". Try \"tarnvex --help\".\n", kind,
               qPrintable(argument));
  return kWrongUse;
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
  for (qsizetype next = 0; next < arguments.size();) {
    const int taken = takenByQt(arguments[next]);
    if (taken == 0) {
      return refuse(arguments[next]);
    }
    next += taken;
  }
  return std::nullopt;
}

}  // namespace tarnvex::desktop
