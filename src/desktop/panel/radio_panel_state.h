#pragma once

#include <QHash>
#include <QVector>

#include "desktop/panel/panel_renderer.h"
#include "desktop/panel/radio_panel.h"

namespace tarnvex::desktop {

/// Indexes that are no key: nothing, and the knob.
inline constexpr int kNone = -1;
inline constexpr int kKnobTarget = -2;

/// A button that went down on a key or on the knob and has not come up yet.
struct RadioPanel::Held {
  int target;
  Qt::MouseButton button;
  bool byKeyboard;
};

struct RadioPanel::State {
  PanelLayout layout;
  QHash<QString, int> elementByName;
  QHash<QString, int> markByName;
  FrontState front;
  QVector<Held> held;
  int focusKey = kNone;
  bool announcing = false;
  QString announced;
};

}  // namespace tarnvex::desktop
