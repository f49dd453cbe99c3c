#pragma once

#include <QStringList>
#include <optional>

namespace tarnvex::desktop {

/// Answers "--version" and "--help" on standard output. Needs no display. Returns the exit status
/// if the arguments contain one of them. Nothing if the program should start.
std::optional<int> answerQuestion(const QStringList& arguments);

/// Refuses, on standard error, the first argument that isn't one of Qt's: the program has no
/// others. Needs no display. Returns the exit status, or nothing if there is no such argument.
std::optional<int> refuseArguments(const QStringList& arguments);

}  // namespace tarnvex::desktop
