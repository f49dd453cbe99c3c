#include "desktop/program.h"

namespace tarnvex::desktop {

Program::Program(const QString& settingsPath) : settings(settingsPath) {}

int Program::run() {
  application.start();
  return loop.run();
}

}  // namespace tarnvex::desktop
