#include "pictures/photographer.h"

namespace tarnvex::pictures {

void Photographer::look() {
  if (done()) {
    return;
  }
  const Shot& shot = shots_[at_];
  if (patience_.hasExpired()) {
    std::fprintf(stderr, "Timed out at picture %zu, \"%s\".\n", at_, qPrintable(shot.file));
    leave();
    return;
  }
  if (!acted_) {
    if (!shot.radio.isEmpty() && !calm_) {
      radio_.write(shot.radio + '\n');
    }
    calm_ = QDeadlineTimer(kCalmMilliseconds);
    if (form() != nullptr && form()->Scantimer.enabled() && shot.ready()) {
      acted_ = true;
      shot.act();
    }
    return;
  }
  if (!shot.shown() || !isSized()) {
    calm_ = QDeadlineTimer(kCalmMilliseconds);
  } else if (calm_->hasExpired()) {
    take(shot);
  }
}

/// Whether the main window has the wanted size. A new window may not have it yet.
bool Photographer::isSized() const {
  auto* window = program_.windows.mainWindow();
  const QSize manual = isUpright() ? kUpright : QSize(kWidth, kHeight);
  const QSize wanted = (whole_.isValid() ? whole_ : manual).expandedTo(window->minimumSizeHint());
  if (window->size() == wanted) {
    return true;
  }
  window->resize(wanted);
  return false;
}

void Photographer::take(const Shot& shot) {
  if (shot.what) {
    save(shot);
  }
  acted_ = false;
  calm_.reset();
  patience_.setRemainingTime(kShotMilliseconds);
  if (++at_; done()) {
    leave();
  }
}

void Photographer::save(const Shot& shot) {
  QWidget* widget = shot.what();
  if (widget->isWindow() && widget != program_.windows.mainWindow()) {
    // As large as the screen allows.
    widget->resize(shot.size.isValid() ? shot.size : widget->sizeHint());
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
  program_.gate.enter([this] {
    program_.state.MemoryModified = false;
    form()->unload();
  });
}

}  // namespace tarnvex::pictures
