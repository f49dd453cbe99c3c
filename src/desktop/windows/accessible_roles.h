#pragma once

namespace tarnvex::desktop {

/// Corrects what Qt reports to assistive technology: an option button whose group the core manages
/// is a radio button, named by its own text; the small window and the manual are windows; a brief
/// notice is one, so that it is spoken. One call per process is enough; more do no harm.
void installAccessibleRoles();

}  // namespace tarnvex::desktop
