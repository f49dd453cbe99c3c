#include "desktop/windows/com_option.h"

#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QFileInfo>
#include <QMenu>
#include <QPointer>
#include <algorithm>

#include "desktop/ports/plain_dialogs.h"
#include "desktop/windows/device_box.h"
#include "desktop/windows/plain_text.h"

namespace tarnvex::desktop {

namespace {

/// Enough of a device's name to distinguish it from others. The drop-down list shows the whole
/// name.
constexpr int kShownCharacters = 12;

bool sameDevice(const QString& one, const QString& other) {
  const QString real = QFileInfo(one).canonicalFilePath();
  return one == other || (!real.isEmpty() && real == QFileInfo(other).canonicalFilePath());
}

}  // namespace

ComOption::ComOption(int slot, platform::OptionButton& model, DeviceSlots& devices, Binder& binder)
    : slot_(slot), model_(model), devices_(devices), gate_(binder.gate()), box_(new DeviceBox) {
  binder.bind(this, model, Binder::Urgency::Leaving);
  box_->setObjectName(QStringLiteral("Device%1").arg(slot));
  box_->setAccessibleName(tr("Device of COM %1").arg(slot));
  // To a screen reader on Linux, a drop-down is named by what it shows.
  box_->setAccessibleDescription(box_->accessibleName());
  box_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box_->setMinimumContentsLength(kShownCharacters);
  connect(box_, &QComboBox::activated, this, [this](int index) { activate(index); });
  showDevices();
}

QVector<ComOption::Choice> ComOption::choices() const {
  const auto ports = devices_.found();
  const QString any =
      slot_ <= ports.size() ? QFileInfo(ports[slot_ - 1].path).fileName() : tr("none");
  QVector<Choice> choices = {{{}, tr("Automatic: %1").arg(any)}};
  for (const auto& port : ports) {
    choices.push_back({port.stablePath, port.title()});
  }
  if (currentIn(choices) == choices.size()) {
    const QFileInfo file(devices_.device(slot_));
    choices.push_back({file.filePath(), file.exists() ? file.fileName()
                                                      : tr("%1 (not there)").arg(file.fileName())});
  }
  return choices;
}

qsizetype ComOption::currentIn(const QVector<Choice>& choices) const {
  const QString current = devices_.isNamed(slot_) ? devices_.device(slot_) : QString();
  return std::ranges::find_if(
             choices, [&](const Choice& choice) { return sameDevice(choice.path, current); }) -
         choices.begin();
}

int ComOption::currentChoice() const {
  return static_cast<int>(currentIn(shown_));
}

void ComOption::fillBox() {
  box_->clear();
  for (const Choice& choice : shown_) {
    box_->addItem(choice.title);
    box_->setItemData(box_->count() - 1, plainTip(choice.path), Qt::ToolTipRole);
  }
  box_->insertSeparator(box_->count());
  box_->addItem(tr("Other..."));
  box_->view()->setMinimumWidth(box_->view()->sizeHintForColumn(0));
}

void ComOption::showDevices() {
  if (const auto now = choices(); now != shown_) {
    shown_ = now;
    fillBox();
  }
  box_->setCurrentIndex(currentChoice());
  const QString path = devices_.device(slot_);
  box_->setToolTip(
      plainTip(path.isEmpty() ? tr("No serial device was found for this port.") : path));
  setToolTip(plainTip(tr("Opens this port: %1").arg(box_->currentText())));
  setAccessibleDescription(box_->currentText());
}

bool ComOption::leadsTo(const std::string& device) const {
  const QFileInfo file(devices_.device(slot_));
  return model_.value() && file.exists() &&
         (devices_.isNamed(slot_) || file.fileName().toStdString() == device);
}

/// Queued, since a choice may lead to a message. While that is open, the window may be exchanged,
/// and the box is still handling its event.
void ComOption::activate(int index) {
  const auto chosen = index < shown_.size() ? std::optional(shown_[index].path) : std::nullopt;
  box_->setCurrentIndex(currentChoice());
  QMetaObject::invokeMethod(
      this, [this, chosen] { chosen ? choose(*chosen) : askForPath(); }, Qt::QueuedConnection);
}

void ComOption::contextMenuEvent(QContextMenuEvent* event) {
  openMenu(event->reason() == QContextMenuEvent::Keyboard ? mapToGlobal(rect().bottomLeft())
                                                          : event->globalPos());
}

void ComOption::openMenu(const QPoint& where) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  showDevices();
  for (qsizetype i = 1; i < shown_.size(); ++i) {
    QAction* action = menu->addAction(withoutMnemonics(shown_[i].title));
    chooseOn(action, shown_[i].path);
    action->setCheckable(true);
    action->setChecked(sameDevice(shown_[i].path, devices_.device(slot_)));
  }
  menu->addSeparator();
  menu->addAction(tr("Other device..."), this, [this] { askForPath(); });
  QAction* any = menu->addAction(tr("Any device found"));
  chooseOn(any, {});
  any->setEnabled(devices_.isNamed(slot_));
  menu->popup(where);
}

/// Queued for the same reason as in `activate`.
void ComOption::chooseOn(QAction* action, const QString& path) {
  connect(
      action, &QAction::triggered, this, [this, path] { choose(path); }, Qt::QueuedConnection);
}

void ComOption::askForPath() {
  auto* dialog = makeInputDialog(text(), tr("Path of the serial device:"), this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
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

/// For the port in use, this ends a wait on its present device.
void ComOption::choose(const QString& path) {
  // The settings may not be writable. Within the gate, the message about that comes after this.
  const auto act = [here = QPointer(this), path] {
    // The window may have been closed meanwhile.
    if (here && here->isEnabled()) {
      here->take(path);
    }
  };
  model_.value() ? gate_.enterLeaving(act) : gate_.enter(act);
}

void ComOption::take(const QString& path) {
  devices_.setDevice(slot_, path);
  showDevices();
  // If this is the port in use, open its new device at once.
  if (model_.value()) {
    gate_.enterLeaving([&model = model_] { model.userClick(); });
  }
}

}  // namespace tarnvex::desktop
