#pragma once

#include <QColor>
#include <QPainter>
#include <QTransform>

#include "desktop/panel/panel_layout.h"
#include "desktop/panel/segment_face.h"

/// Draws the lit glass and what it shows. The painter uses layout units.
namespace tarnvex::desktop {

/// The colour of the text: near-black on a bright back light, near-white on a dark one.
QColor inkOn(const QColor& back);

/// How far an element may reach beyond its rectangle (slant, soft edges), in units.
inline constexpr double kElementMargin = 2;

/// Draws the lit glass with the ghosts of the words, letters, bars and marks.
void paintGlass(QPainter& painter, const PanelLayout& layout, const QColor& back);

/// Draws one element over the glass and its ghost. Draws nothing for a dark element.
void paintElement(QPainter& painter, const SegmentFace& face, const DisplayElement& element,
                  const QString& text, bool lit, const QColor& ink);

/// Where a line of segments is in its element's rectangle.
QTransform segmentPlace(const DisplayElement& element, const SegmentLine& line);

/// Draws the unlit cells behind a line of segments. Their number depends on the text.
void paintSegmentGhost(QPainter& painter, const DisplayElement& element, const SegmentLine& line,
                       const QColor& ink);

/// The line of segments that shows `text` in `element`. If the text is empty, or segments can't
/// show it, the line shows the element's text at rest.
SegmentLine segmentLine(const SegmentFace& face, const DisplayElement& element,
                        const QString& text);

}  // namespace tarnvex::desktop
