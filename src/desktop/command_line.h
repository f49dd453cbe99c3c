#pragma once

#include <QStringList>
#include <optional>

namespace tarnvex::desktop {

/// Answers "--version" and "--help" on standard output. Needs no display. Returns the exit status
/// if the arguments asked for one of them, nothing if the program is to start.
std::optional<int> answerQuestion(const QStringList& arguments);

/// Refuses, on standard error, what is left of the arguments after Qt has taken its own: the
/// program takes none. Returns the exit status, or nothing if there is nothing to refuse.
std::optional<int> refuseArguments(const QStringList& arguments);

}  // namespace tarnvex::desktop
