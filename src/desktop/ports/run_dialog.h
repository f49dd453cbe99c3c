#pragma once

#include <QDialog>
#include <optional>

#include "platform/event_gate.h"

namespace tarnvex::desktop {

/// Opens a dialog and waits at the gate until the user has closed it. Returns its result, or
/// nothing if it is gone, which happens when its window goes.
std::optional<int> runDialog(QDialog* dialog, platform::EventGate& gate);

}  // namespace tarnvex::desktop
