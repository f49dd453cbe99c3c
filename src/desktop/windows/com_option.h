#pragma once

#include <QComboBox>
#include <QRadioButton>

#include "desktop/ports/device_slots.h"
#include "desktop/windows/binder.h"

namespace tarnvex::desktop {

/// A COM option with a drop-down list of devices beside it: the automatic choice, the devices that
/// are plugged in, and "Other..." for a path. The context menu offers the same.
class ComOption : public QRadioButton {
 public:
  ComOption(int slot, platform::OptionButton& model, DeviceSlots& devices, Binder& binder);

  /// The drop-down list. The page places it beside the option.
  [[nodiscard]] QComboBox* deviceBox() const { return box_; }
  /// Devices may have come or gone.
  void showDevices();
  /// Whether this is the option in use and its device is there: the stored one, or the device of
  /// that name, which was open before.
  [[nodiscard]] bool leadsTo(const std::string& device) const;

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  /// An entry of the list: a path, empty for the automatic choice, and its name for the user.
  struct Choice {
    QString path;
    QString title;
    bool operator==(const Choice& other) const = default;
  };
  [[nodiscard]] QVector<Choice> choices() const;
  /// The place of the slot's device in a list; the list's size if it isn't there.
  [[nodiscard]] qsizetype currentIn(const QVector<Choice>& choices) const;
  [[nodiscard]] int currentChoice() const;
  void fillBox();
  void activate(int index);
  void openMenu(const QPoint& where);
  void chooseOn(QAction* action, const QString& path);
  void askForPath();
  void choose(const QString& path);
  void take(const QString& path);

  int slot_;
  platform::OptionButton& model_;
  DeviceSlots& devices_;
  platform::EventGate& gate_;
  QComboBox* box_;
  /// The entries of the list.
  QVector<Choice> shown_;
};

}  // namespace tarnvex::desktop
