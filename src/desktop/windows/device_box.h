#pragma once

#include <QComboBox>

namespace tarnvex::desktop {

/// A drop-down list in which a choice acts at once, such as opening a port. So only a line of the
/// open list can be chosen: the arrow keys open the list, and the wheel and typed letters do
/// nothing while it is closed.
class DeviceBox : public QComboBox {
 public:
  DeviceBox();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace tarnvex::desktop
