#include "pictures/photographer.h"

#include "link/scanner_commands.h"
#include "sample_log/sample_log.h"

namespace tarnvex::pictures {

void Photographer::act(const Shot& shot) {
  if (!shot.radio.isEmpty() && !calm_) {
    radio_.write(shot.radio + '\n');
  }
  calm_ = QDeadlineTimer(kCalmMilliseconds);
  // While an upload asks for a system type, there is no poll.
  const bool isUsable =
      form() != nullptr && (form()->Scantimer.enabled() || window("Form3") != nullptr);
  if (isUsable && shot.ready()) {
    acted_ = true;
    // Not from within the look: what opens a box waits in it, and a timer never fires within
    // itself.
    QTimer::singleShot(0, &look_, shot.act);
  }
}

void Photographer::look() {
  if (done() || !isRead()) {
    return;
  }
  const Shot& shot = shots_[at_];
  if (patience_.hasExpired()) {
    std::fprintf(stderr, "Timed out at picture %zu, \"%s\".\n", at_, qPrintable(shot.file));
    leave();
    return;
  }
  if (!acted_) {
    act(shot);
    return;
  }
  if (!shot.shown() || !isSized()) {
    calm_ = QDeadlineTimer(kCalmMilliseconds);
  } else if (calm_->hasExpired()) {
    take(shot);
  }
}

/// Whether the main window has the wanted size. A new window may not have it yet. Ends the program
/// if the window can't become that small.
bool Photographer::isSized() {
  auto* window = program_.windows.mainWindow();
  const QSize least = window->minimumSizeHint();
  const QSize manual = isUpright() ? kUpright : QSize(kWidth, kHeight);
  const QSize wanted = whole_.isValid() ? whole_ : manual.expandedTo(least);
  const bool sized = window->size() == wanted;
  if (least.expandedTo(wanted) != wanted) {
    std::fprintf(stderr, "A window needs %d x %d.\n", least.width(), least.height());
    leave();
  } else if (!sized) {
    window->resize(wanted);
  }
  return sized;
}

void Photographer::take(const Shot& shot) {
  if (shot.what) {
    save(shot);
    startReader(shot);
  }
  acted_ = false;
  calm_.reset();
  patience_.setRemainingTime(kShotMilliseconds);
  if (++at_; done()) {
    leave();
  }
}

void Photographer::startReader(const Shot& shot) {
  const QString reader = qEnvironmentVariable("TARNVEX_READER");
  if (!reader.isEmpty()) {
    reader_.setProcessChannelMode(QProcess::ForwardedChannels);
    reader_.start(reader, {QString::number(QCoreApplication::applicationPid()),
                           folder_ + '/' + shot.file + ".txt"});
  }
}

bool Photographer::isRead() {
  if (reader_.state() != QProcess::NotRunning) {
    return false;
  }
  if (reader_.exitCode() != 0 || reader_.error() == QProcess::FailedToStart) {
    leave();
    return false;
  }
  return true;
}

void Photographer::save(const Shot& shot) {
  QWidget* widget = shot.what();
  if (widget->isWindow() && widget != program_.windows.mainWindow()) {
    // The screen may have been too small for it.
    widget->resize(shot.size.isValid() ? shot.size : widget->size().expandedTo(widget->sizeHint()));
  }
  QPixmap picture = widget->grab();
  if (widget->objectName() == QLatin1String("panel")) {
    // Only the radio, without a background, for pages of any colour.
    picture.fill(Qt::transparent);
    widget->render(&picture, {}, {}, QWidget::DrawChildren);
    picture = picture.copy(QRegion(picture.mask()).boundingRect());
  }
  if (shot.height > 0) {
    picture = picture.copy(0, 0, picture.width(), int(shot.height * picture.devicePixelRatio()));
  }
  const QString scale = picture.devicePixelRatio() > 1 ? QStringLiteral("@2x") : QString();
  picture.save(folder_ + '/' + shot.file + scale + ".png", "PNG", 0);
}

void Photographer::leave() {
  look_.stop();
  closeAll();
  program_.gate.enter([this] {
    program_.state.MemoryModified = false;
    form()->unload();
  });
}

QWidget* Photographer::window(const QString& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == name && window->isVisible()) {
      return window;
    }
  }
  return nullptr;
}

void Photographer::tickBanks() const {
  for (int bank = 0; bank < 4; ++bank) {
    find<QAbstractButton>(qPrintable(QStringLiteral("MSBank(%1)").arg(bank)))->click();
  }
}

/// Only the widget changes, for the picture: nothing is recorded here.
void Photographer::showTicked(const char* name) const {
  auto* box = find<QAbstractButton>(name);
  const QSignalBlocker silence(box);
  box->setChecked(true);
}

QWidget* Photographer::withBanks(QWidget* dialog) {
  auto* banks = dialog->findChild<QListWidget*>("List1");
  banks->item(0)->setSelected(true);
  banks->item(2)->setSelected(true);
  return dialog;
}

void Photographer::openLockouts() const {
  program_.gate.enter([this] {
    for (const double skipped : {151.625, 154.57, 158.745}) {
      program_.link.SendCommand(tarnvex::link::command::skipFrequency(skipped));
    }
    form()->typeKey('L');
  });
}

/// The radio is quiet, so nothing is added to the sample.
void Photographer::openSampleLog() const {
  program_.receptions.stop();
  program_.receptions.clear();
  // 14 March 2026.
  constexpr std::int64_t kMidnight = 1'773'446'400'000;
  tools::writeSampleDay(program_.receptionStore, kMidnight);
  choose("mnuReceptions");
}

bool Photographer::logIsShown() {
  const QWidget* log = window("frmReceptionLog");
  const auto* rows = log == nullptr ? nullptr : log->findChild<QTableView*>("receptions");
  return rows != nullptr && rows->model()->rowCount() > 100;
}

void Photographer::closeAll() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && dynamic_cast<tarnvex::desktop::MainWindow*>(window) == nullptr) {
      window->close();
    }
  }
}

}  // namespace tarnvex::pictures
