#pragma once

#include <QDialog>
#include <optional>

#include "platform/event_gate.h"

namespace tarnvex::desktop {

/// Opens a dialog and waits at the gate until the user has closed it. Returns its result, or
/// nothing if the dialog was destroyed with its window.
std::optional<int> runDialog(QDialog* dialog, platform::EventGate& gate);

}  // namespace tarnvex::desktop
