#pragma once

#include <QStringList>
#include <optional>

namespace tarnvex::desktop {

/// Answers "--version" and "--help" on standard output. Needs no display. Returns the exit status
/// if the arguments contain one of them. Nothing if the program should start.
std::optional<int> answerQuestion(const QStringList& arguments);

/// Refuses, on standard error, any arguments that Qt hasn't taken: the program has none of its own.
/// Returns the exit status, or nothing if there are no such arguments.
std::optional<int> refuseArguments(const QStringList& arguments);

}  // namespace tarnvex::desktop
