#pragma once

#include <QColor>
#include <QPainter>

#include "desktop/panel/panel_layout.h"
#include "desktop/panel/segment_face.h"

/// The lit glass and what stands on it; the painter is in units.
namespace tarnvex::desktop {

/// Near-black on a bright back light, near-white on a dark one.
QColor inkOn(const QColor& back);

/// How far an element may reach beyond its rectangle (slant, soft edges), in units.
inline constexpr double kElementMargin = 2;

/// The lit glass with the ghosts of the words, letters, bars and marks.
void paintGlass(QPainter& painter, const PanelLayout& layout, const QColor& back);

/// One element over the bare glass. Segment texts draw their own ghost, whose cells follow the
/// text.
void paintElement(QPainter& painter, const SegmentFace& face, const DisplayElement& element,
                  const QString& text, bool lit, const QColor& ink);

}  // namespace tarnvex::desktop
