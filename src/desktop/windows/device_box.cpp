#include "desktop/windows/device_box.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>

namespace tarnvex::desktop {

namespace {

bool opensList(int key) {
  static constexpr std::array kKeys = {Qt::Key_Up, Qt::Key_Down, Qt::Key_F4, Qt::Key_Space};
  return std::ranges::find(kKeys, key) != kKeys.end();
}

}  // namespace

DeviceBox::DeviceBox() {
  setFocusPolicy(Qt::StrongFocus);
}

void DeviceBox::keyPressEvent(QKeyEvent* event) {
  opensList(event->key()) ? showPopup() : event->ignore();
}

/// The page scrolls instead.
void DeviceBox::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

}  // namespace tarnvex::desktop
