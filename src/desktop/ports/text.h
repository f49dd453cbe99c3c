#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tarnvex::desktop {

/// Core text (Windows-1252, one byte a character) for the screen. The five bytes without a
/// character show as U+FFFD.
QString toScreen(std::string_view text);
/// Text of the screen for the core. Characters that the code page doesn't have are dropped;
/// `dropped` tells whether any were.
std::string fromScreen(const QString& text, bool* dropped = nullptr);

}  // namespace tarnvex::desktop
