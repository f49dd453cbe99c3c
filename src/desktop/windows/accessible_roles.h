#pragma once

namespace tarnvex::desktop {

/// Corrects what Qt reports to assistive technology: an option button whose group the core manages
/// is a radio button, named by its own text, and the small window and the manual are windows. One
/// call per process is enough; more do no harm.
void installAccessibleRoles();

}  // namespace tarnvex::desktop
