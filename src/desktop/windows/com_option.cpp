#include "desktop/windows/com_option.h"

#include <QContextMenuEvent>
#include <QFileInfo>
#include <QInputDialog>
#include <QMenu>
#include <algorithm>

namespace tarnvex::desktop {

ComOption::ComOption(int slot, platform::OptionButton& model, DeviceSlots& devices, Binder& binder)
    : slot_(slot), model_(model), devices_(devices), gate_(binder.gate()), device_(new QLabel) {
  binder.bind(this, model, Binder::Urgency::Leaving);
  device_->setForegroundRole(QPalette::PlaceholderText);
  device_->installEventFilter(this);
  showDevice();
}

void ComOption::showDevice() {
  const QString path = devices_.device(slot_);
  device_->setText(path.isEmpty() ? tr("no device") : QFileInfo(path).fileName());
  const QString tip = path.isEmpty() ? tr("No serial device was found for this port.") : path;
  setToolTip(tip + QLatin1Char('\n') + tr("The context menu sets another device."));
  device_->setToolTip(toolTip());
  setAccessibleDescription(device_->text());
}

void ComOption::contextMenuEvent(QContextMenuEvent* event) {
  openMenu(event->globalPos());
}

bool ComOption::eventFilter(QObject* watched, QEvent* event) {
  if (watched == device_ && event->type() == QEvent::ContextMenu) {
    openMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
    return true;
  }
  return QRadioButton::eventFilter(watched, event);
}

void ComOption::openMenu(const QPoint& where) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const QString current = devices_.device(slot_);
  auto ports = DeviceSlots::foundPorts();
  const bool found =
      std::ranges::any_of(ports, [&](const auto& port) { return port.path == current; });
  if (!found && !current.isEmpty()) {
    ports.push_front({current, {}});
  }
  for (const auto& port : ports) {
    const QString text = port.description.isEmpty()
                             ? port.path
                             : port.path + QStringLiteral(" (%1)").arg(port.description);
    QAction* action = menu->addAction(text);
    chooseOn(action, port.path);
    action->setCheckable(true);
    action->setChecked(port.path == current);
  }
  menu->addSeparator();
  menu->addAction(tr("Other device..."), this, [this] { askForPath(); });
  QAction* any = menu->addAction(tr("Any device found"));
  chooseOn(any, {});
  any->setEnabled(devices_.isNamed(slot_));
  menu->popup(where);
}

/// Queued: a port that can't be opened leads to a message, and by the time it is answered the menu
/// would be gone with its event still under way.
void ComOption::chooseOn(QAction* action, const QString& path) {
  connect(
      action, &QAction::triggered, this, [this, path] { choose(path); }, Qt::QueuedConnection);
}

void ComOption::askForPath() {
  auto* dialog = new QInputDialog(this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setWindowTitle(text());
  dialog->setLabelText(tr("Path of the serial device:"));
  dialog->setTextValue(devices_.device(slot_));
  dialog->resize(dialog->fontMetrics().averageCharWidth() * 60, dialog->sizeHint().height());
  const auto take = [this](const QString& path) {
    if (!path.trimmed().isEmpty()) {
      choose(path.trimmed());
    }
  };
  connect(dialog, &QInputDialog::textValueSelected, this, take, Qt::QueuedConnection);
  dialog->open();
}

void ComOption::choose(const QString& path) {
  // The window may have left the screen meanwhile.
  if (!isEnabled()) {
    return;
  }
  devices_.setDevice(slot_, path);
  showDevice();
  // The port in use moves to its new device at once.
  if (model_.value()) {
    gate_.enterLeaving([&model = model_] { model.userClick(); });
  }
}

}  // namespace tarnvex::desktop
