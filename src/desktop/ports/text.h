#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tarnvex::desktop {

/// Core text (Windows-1252, one byte a character) for the screen.
QString toScreen(std::string_view text);
/// As much of it as a line on the screen can show. A file may bring a field of any length, and
/// laying that out would hold the window up for seconds.
QString lineToScreen(std::string_view text);
/// Text of the screen for the core. Characters that the code page doesn't have are dropped;
/// `dropped` tells whether any were.
std::string fromScreen(const QString& text, bool* dropped = nullptr);

/// The same with `substitute` in place of each character that would be dropped.
std::string fromScreen(const QString& text, char substitute);

/// A window's title, which may hold the name of a file: bytes as the file system has them, so UTF-8
/// as a rule.
QString titleToScreen(std::string_view text);

}  // namespace tarnvex::desktop
