#pragma once

#include <QColor>

#include "platform/controls.h"

namespace tarnvex::desktop {

/// Convert a colour number of the core, with red in its lowest byte, for the screen and back.
inline QColor toScreen(platform::Colour colour) {
  return QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                static_cast<int>(colour >> 16 & 0xFF));
}
inline platform::Colour fromScreen(const QColor& colour) {
  return static_cast<platform::Colour>(colour.red() | colour.green() << 8 | colour.blue() << 16);
}

}  // namespace tarnvex::desktop
