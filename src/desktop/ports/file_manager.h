#pragma once

#include <QString>

namespace tarnvex::desktop {

/// Selects a file in the desktop's file manager. If there is no file manager that can do this, or
/// the file is gone, opens its folder instead. Returns at once.
void showInFileManager(const QString& file);

}  // namespace tarnvex::desktop
