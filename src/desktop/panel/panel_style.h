#pragma once

#include <QColor>
#include <QLinearGradient>

/// The colours of the drawn radios. The light comes from above the panel, a little in front.
namespace tarnvex::desktop::style {

inline const QColor kBodyTop{0x3f, 0x42, 0x47};
inline const QColor kBodyMiddle{0x35, 0x37, 0x3b};
inline const QColor kBodyBottom{0x26, 0x28, 0x2b};
inline const QColor kEdge{0x12, 0x13, 0x15};
inline const QColor kLight{0xff, 0xff, 0xff};  // used with low alpha
inline const QColor kPrint{0xdc, 0xde, 0xe1};
inline const QColor kPrintQuiet{0xc0, 0xc4, 0xc9};
inline const QColor kSeat{0x17, 0x18, 0x1a};
inline const QColor kKeyTop{0x5e, 0x62, 0x69};
inline const QColor kKeyBottom{0x47, 0x4a, 0x50};
inline const QColor kDigitTop{0x74, 0x78, 0x80};
inline const QColor kDigitBottom{0x5a, 0x5e, 0x66};
inline const QColor kQuietTop{0x40, 0x43, 0x48};
inline const QColor kQuietBottom{0x33, 0x35, 0x39};
inline const QColor kKeyPrint{0xf2, 0xf3, 0xf4};
inline const QColor kBezel{0x14, 0x15, 0x17};
inline const QColor kMarkDark{0x5a, 0x5d, 0x62};
inline const QColor kAccent{0xff, 0xb4, 0x3c};
inline const QColor kInkDark{0x1b, 0x1d, 0x16};
inline const QColor kInkLight{0xf4, 0xf6, 0xee};

/// The colour, but this opaque: 0 is nothing, 255 all.
inline QColor withAlpha(QColor colour, int alpha) {
  colour.setAlpha(alpha);
  return colour;
}

/// Shades from the top of a place to its bottom; each colour begins at its share of the way.
inline QLinearGradient downwards(const QRectF& place, const QGradientStops& stops) {
  QLinearGradient shade(place.topLeft(), place.bottomLeft());
  shade.setStops(stops);
  return shade;
}

}  // namespace tarnvex::desktop::style
