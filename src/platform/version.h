#pragma once

namespace tarnvex::platform {

/// The program's version, such as "1.00". It comes from the project's build file.
[[nodiscard]] const char* version();

}  // namespace tarnvex::platform
