#pragma once

#include <QColor>
#include <QPainter>
#include <QTransform>

#include "desktop/panel/panel_layout.h"
#include "desktop/panel/segment_face.h"

/// Draws the lit glass and what it shows. The painter uses layout units.
namespace tarnvex::desktop {

/// Near-black on a bright back light, near-white on a dark one.
QColor inkOn(const QColor& back);

/// How far an element may reach beyond its rectangle (slant, soft edges), in units.
inline constexpr double kElementMargin = 2;

/// The lit glass with the ghosts of the words, letters, bars and marks.
void paintGlass(QPainter& painter, const PanelLayout& layout, const QColor& back);

/// One element over the bare glass and its ghost. Dark elements draw nothing.
void paintElement(QPainter& painter, const SegmentFace& face, const DisplayElement& element,
                  const QString& text, bool lit, const QColor& ink);

/// Where a line of segments is in its element's rectangle.
QTransform segmentPlace(const DisplayElement& element, const SegmentLine& line);

/// The unlit cells behind a line of segments. Their number follows the text.
void paintSegmentGhost(QPainter& painter, const DisplayElement& element, const SegmentLine& line,
                       const QColor& ink);

/// The line of segments that shows `text` in `element`. Without a text, or with one that segments
/// can't show, it is the element's rest text.
SegmentLine segmentLine(const SegmentFace& face, const DisplayElement& element,
                        const QString& text);

}  // namespace tarnvex::desktop
