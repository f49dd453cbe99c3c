#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tarnvex::desktop {

/// Converts core text (Windows-1252, one byte per character) for the screen.
QString toScreen(std::string_view text);
/// The same, cut to what a line on the screen can show. A field of a file can have any length, and
/// the layout of a very long one would block the window for seconds.
QString lineToScreen(std::string_view text);
/// Converts text from the screen for the core. Characters that the code page doesn't have are
/// dropped; `dropped` says whether there were any.
std::string fromScreen(const QString& text, bool* dropped = nullptr);

/// The same, with `substitute` instead of each dropped character.
std::string fromScreen(const QString& text, char substitute);

/// Converts a message or another text that may contain a file name: bytes as the file system has
/// them, usually UTF-8. A text that is no UTF-8 is taken for core text.
QString messageToScreen(std::string_view text);
/// The same for a window's title, in which "[*]" has a meaning of its own.
QString titleToScreen(std::string_view text);

}  // namespace tarnvex::desktop
