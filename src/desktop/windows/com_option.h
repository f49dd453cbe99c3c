#pragma once

#include <QLabel>
#include <QRadioButton>

#include "desktop/ports/device_slots.h"
#include "desktop/windows/binder.h"

namespace tarnvex::desktop {

/// A COM option with the device of its slot beside it. The context menu gives the slot another
/// device: one of those found, a typed path, or whichever is found.
class ComOption : public QRadioButton {
 public:
  ComOption(int slot, platform::OptionButton& model, DeviceSlots& devices, Binder& binder);

  /// Shows the device; belongs beside the option.
  [[nodiscard]] QLabel* deviceLabel() const { return device_; }

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void showDevice();
  void openMenu(const QPoint& where);
  void chooseOn(QAction* action, const QString& path);
  void askForPath();
  void choose(const QString& path);

  int slot_;
  platform::OptionButton& model_;
  DeviceSlots& devices_;
  platform::EventGate& gate_;
  QLabel* device_;
};

}  // namespace tarnvex::desktop
