#pragma once

#include <QString>

namespace tarnvex::desktop {

/// The folder of the program's own files. It is the executable's folder if that is writable and
/// holds `Searchlist.txt`, as in a build tree or an unpacked archive. Otherwise it is `Tarnvex` in
/// the user's data folder, which is filled from the installed share folder the first time.
QString programDirectory();

}  // namespace tarnvex::desktop
