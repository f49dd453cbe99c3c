#include "desktop/windows/quick_view_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QStyleHints>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "desktop/panel/panel_style.h"
#include "desktop/ports/text.h"
#include "desktop/windows/window_exit.h"
#include "desktop/windows/window_memory.h"

namespace tarnvex::desktop {
namespace {

constexpr double kTwipsPerPixel = 15;
/// At least this many pixels of the window stay on a screen.
constexpr int kSeen = 40;

constexpr auto kWindowKind = Qt::Window | Qt::WindowStaysOnTopHint | Qt::WindowTitleHint |
                             Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

shell::Twips toTwips(int x, int y) {
  return {x * kTwipsPerPixel, y * kTwipsPerPixel};
}

int toPixels(double twips) {
  // Limits absurd values in the settings.
  return qRound(std::clamp(twips / kTwipsPerPixel, -1e6, 1e6));
}

bool onAScreen(const QRect& window) {
  const auto screens = QGuiApplication::screens();
  return std::ranges::any_of(screens, [&](const QScreen* screen) {
    const QRect seen = screen->geometry().intersected(window);
    return seen.width() >= kSeen && seen.height() >= kSeen;
  });
}

}  // namespace

QuickViewWindow::QuickViewWindow(shell::QuickViewForm& form, const PanelLayout& radio,
                                 platform::EventGate& gate)
    : QWidget(nullptr, kWindowKind),
      form_(form),
      gate_(gate),
      display_(new RadioPanel(displayOnly(radio), this)),
      binding_(*display_, form.elements(), form.background()) {
  setObjectName(QString::fromStdString(form.window.name()));
  setWindowTitle(titleToScreen(form.window.caption()));
  addDisplay();
  const int width = fontMetrics().averageCharWidth() * 44;
  resize(width, display_->heightForWidth(width));
  setMinimumSize(size() / 2);
}

void QuickViewWindow::addDisplay() {
  // The window handles all clicks.
  display_->setAttribute(Qt::WA_TransparentForMouseEvents);
  display_->setFocusPolicy(Qt::NoFocus);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  // The colour around the display, which keeps its proportions whatever those of the window are.
  setPalette(QPalette(style::kBezel));
  layout->addWidget(display_);
}

void QuickViewWindow::present() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const QRect room = screen != nullptr ? screen->availableGeometry() : QRect();
  // Before the window is on the screen, its frame isn't known. The title bar is assumed to be one
  // and a half lines high.
  const int title = fontMetrics().height() * 3 / 2;
  form_.load(toTwips(room.right() + 1, room.bottom() + 1), toTwips(width(), height() + title));
  const QPoint stored(toPixels(form_.place().x), toPixels(form_.place().y));
  QRect place(stored, size());
  if (!onAScreen(place)) {
    place.moveBottomRight(room.bottomRight() - QPoint(0, title));
  }
  place = fitToScreens(place, availableScreens(), QMargins(0, 0, 0, title));
  if (place.topLeft() != stored) {
    form_.userMove(toTwips(place.x(), place.y()));
  }
  resize(place.size());
  move(place.topLeft());
  show();
  placed_ = true;
}

void QuickViewWindow::showRecording(const platform::Label& light) {
  light_ = new RecordingLight(light, this);
  // After the light has taken its text and size.
  lightChanged_ = light.changed.follow([this] { placeLight(); });
}

/// The light grows with the display.
void QuickViewWindow::placeLight() {
  const QRect spare = display_->spareRect();
  if (light_ != nullptr && !spare.isEmpty()) {
    QFont letters = light_->font();
    // Room for "REC 12:34".
    letters.setPixelSize(std::max(std::min(spare.height() * 2 / 3, spare.width() / 7), 1));
    light_->setFont(letters);
    const int gap = light_->fontMetrics().averageCharWidth();
    light_->setContentsMargins(gap, 0, gap, 0);
    light_->adjustSize();
    light_->move(spare.center() - light_->rect().center());
  }
}

void QuickViewWindow::leaveScreen() {
  placed_ = false;
  takeOffScreen(this, gate_);
}

void QuickViewWindow::askToClose() {
  gate_.enterClosing([&form = form_] { form.userClose(); });
}

void QuickViewWindow::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->pos();
}

void QuickViewWindow::mouseMoveEvent(QMouseEvent* event) {
  const int enough = QGuiApplication::styleHints()->startDragDistance();
  if (pressed_ && (event->pos() - *pressed_).manhattanLength() >= enough && windowHandle()) {
    pressed_.reset();
    windowHandle()->startSystemMove();
  }
}

void QuickViewWindow::mouseReleaseEvent(QMouseEvent* /*event*/) {
  if (std::exchange(pressed_, std::nullopt)) {
    askToClose();
  }
}

void QuickViewWindow::keyPressEvent(QKeyEvent* event) {
  // The key that has opened the window may still be held down.
  if (!event->isAutoRepeat()) {
    askToClose();
  }
}

void QuickViewWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  askToClose();
}

void QuickViewWindow::resizeEvent(QResizeEvent* /*event*/) {
  placeLight();
}

void QuickViewWindow::moveEvent(QMoveEvent* /*event*/) {
  if (placed_) {
    gate_.enter([&form = form_, place = toTwips(pos().x(), pos().y())] { form.userMove(place); });
  }
}

}  // namespace tarnvex::desktop
