#pragma once

#include <QString>

namespace tarnvex::desktop {

/// The folder of the program's own files: where the executable is, if that folder is writable and
/// holds `Searchlist.txt` (a build tree, an unpacked archive), otherwise `Tarnvex` in the user's
/// data folder, which is filled from the installed share folder the first time.
QString programDirectory();

}  // namespace tarnvex::desktop
