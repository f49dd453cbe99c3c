#include "platform/version.h"

namespace tarnvex::platform {

const char* version() {
  return TARNVEX_VERSION;
}

}  // namespace tarnvex::platform
