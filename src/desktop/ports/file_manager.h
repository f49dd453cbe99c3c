#pragma once

#include <QString>

namespace tarnvex::desktop {

/// Shows a file in the desktop's file manager, selected among its neighbours. Where no file manager
/// can be asked for that, or the file is gone, its folder is opened instead. Returns at once.
void showInFileManager(const QString& file);

}  // namespace tarnvex::desktop
