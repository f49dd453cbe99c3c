#pragma once

#include <QHash>
#include <QTimer>
#include <QVector>

#include "desktop/panel/panel_renderer.h"
#include "desktop/panel/radio_panel.h"

namespace tarnvex::desktop {

/// Targets of a press that aren't keys: nothing, and the knob.
inline constexpr int kNone = -1;
inline constexpr int kKnobTarget = -2;

/// A button that was pressed on a key or the knob and hasn't been released yet.
struct RadioPanel::Held {
  int target;
  Qt::MouseButton button;
  bool byKeyboard;
};

/// The panel's variables, shared by its source files.
struct RadioPanel::State {
  PanelLayout layout;
  QHash<QString, int> elementByName;
  QHash<QString, int> markByName;
  FrontState front;
  QVector<Held> held;
  int focusKey = kNone;
  /// Runs while the reception hasn't lasted long enough to be announced.
  QTimer* settling = nullptr;
  QString received;
  QString announced;
};

}  // namespace tarnvex::desktop
