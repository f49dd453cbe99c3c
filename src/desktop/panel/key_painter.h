#pragma once

#include <QPainter>

#include "desktop/panel/panel_layout.h"

namespace tarnvex::desktop {

/// How a key looks at the moment.
struct KeyLook {
  bool hover = false;
  bool down = false;
  bool focus = false;
  [[nodiscard]] bool atRest() const { return !hover && !down && !focus; }
};

/// How far a key's drawing (its seat, its focus ring) reaches beyond its rectangle, in units.
inline constexpr double kKeyMargin = 4;

/// Draws one key over its previous look. The painter uses layout units.
void paintKey(QPainter& painter, const PanelLayout& layout, const PanelKey& key,
              const KeyLook& look);

}  // namespace tarnvex::desktop
