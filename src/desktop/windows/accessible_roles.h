#pragma once

namespace tarnvex::desktop {

/// Corrects two roles that Qt reports to assistive technology: an option button whose group the
/// core manages is a radio button, and the small window is a window. One call per process is
/// enough; more do no harm.
void installAccessibleRoles();

}  // namespace tarnvex::desktop
