#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tarnvex::desktop {

/// Core text (Windows-1252, one byte a character) for the screen.
QString toScreen(std::string_view text);
/// The same, cut to what a line on the screen can show. A field of a file can have any length, and
/// its layout would block the window for seconds.
QString lineToScreen(std::string_view text);
/// Text from the screen for the core. Characters that the code page doesn't have are dropped, and
/// `dropped` says whether there were any.
std::string fromScreen(const QString& text, bool* dropped = nullptr);

/// The same with `substitute` in place of each character that would be dropped.
std::string fromScreen(const QString& text, char substitute);

/// A window's title, which may hold the name of a file: bytes as the file system has them, so UTF-8
/// as a rule.
QString titleToScreen(std::string_view text);

}  // namespace tarnvex::desktop
