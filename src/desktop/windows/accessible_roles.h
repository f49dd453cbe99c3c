#pragma once

namespace tarnvex::desktop {

/// Gives assistive technology the roles that Qt doesn't know of: an option button whose group the
/// core keeps is a radio button, and the small window is a window. Once a process is enough; more
/// do no harm.
void installAccessibleRoles();

}  // namespace tarnvex::desktop
