#pragma once

#include <QComboBox>
#include <QRadioButton>

#include "desktop/ports/device_slots.h"
#include "desktop/windows/binder.h"

namespace tarnvex::desktop {

/// A COM option with a drop-down of devices beside it: any device that is found, those that are
/// there now, and "Other..." for a path. The context menu offers the same.
class ComOption : public QRadioButton {
 public:
  ComOption(int slot, platform::OptionButton& model, DeviceSlots& devices, Binder& binder);

  /// Belongs beside the option.
  [[nodiscard]] QComboBox* deviceBox() const { return box_; }
  /// Devices may have come or gone.
  void showDevices();

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  /// What can be chosen: a path, empty for whichever is found, and its name for the user.
  struct Choice {
    QString path;
    QString title;
    bool operator==(const Choice& other) const = default;
  };
  [[nodiscard]] QVector<Choice> choices() const;
  [[nodiscard]] int currentChoice() const;
  void activate(int index);
  void openMenu(const QPoint& where);
  void chooseOn(QAction* action, const QString& path);
  void askForPath();
  void choose(const QString& path);

  int slot_;
  platform::OptionButton& model_;
  DeviceSlots& devices_;
  platform::EventGate& gate_;
  QComboBox* box_;
  /// Those in the drop-down now.
  QVector<Choice> shown_;
};

}  // namespace tarnvex::desktop
