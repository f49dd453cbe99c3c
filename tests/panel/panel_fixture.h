#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QImage>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QRegion>
#include <QStringList>
#include <QVBoxLayout>
#include <memory>

#include "desktop/panel/radio_panel.h"

namespace tarnvex::desktop {

/// The window around a panel. Records the events that the panel has passed on.
class HostWindow : public QWidget {
 public:
  QStringList received;

 protected:
  void keyPressEvent(QKeyEvent* event) override { received.append("key " + event->text()); }
  void mousePressEvent(QMouseEvent*) override { received.append("mouse"); }
};

/// Collects the areas that a widget paints.
class PaintRecorder : public QObject {
 public:
  explicit PaintRecorder(QWidget* watched) { watched->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
  /// What has been painted since the last call.
  QRegion take() {
    QApplication::processEvents();
    return std::exchange(region, QRegion());
  }
  QRegion region;
};

/// A panel in a visible window of its natural size.
struct PanelInWindow {
  explicit PanelInWindow(const PanelLayout& layout) : panel(new RadioPanel(layout)) {
    auto* box = new QVBoxLayout(&window);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(panel);
    window.resize(panel->sizeHint());
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    QObject::connect(panel, &RadioPanel::keyPressed, &window,
                     [this](int key, Qt::MouseButton b) { note("press", key, b); });
    QObject::connect(panel, &RadioPanel::keyReleased, &window,
                     [this](int key, Qt::MouseButton b) { note("release", key, b); });
    QObject::connect(panel, &RadioPanel::keyClicked, &window,
                     [this](int key, Qt::MouseButton b) { note("click", key, b); });
    QObject::connect(panel, &RadioPanel::knobPressed, &window,
                     [this](Qt::MouseButton b) { note("knob press", -1, b); });
    QObject::connect(panel, &RadioPanel::knobReleased, &window,
                     [this](Qt::MouseButton b) { note("knob release", -1, b); });
    QObject::connect(panel, &RadioPanel::displayDoubleClicked, &window,
                     [this] { log.append("display"); });
  }

  void note(const QString& what, int key, Qt::MouseButton button) {
    const QString side = button == Qt::LeftButton ? "left" : "right";
    log.append(key < 0 ? what + " " + side : QString("%1 %2 %3").arg(what).arg(key).arg(side));
  }
  QStringList takeLog() { return std::exchange(log, QStringList()); }

  QImage picture() const { return panel->grab().toImage().convertToFormat(QImage::Format_ARGB32); }

  HostWindow window;
  RadioPanel* panel;
  QStringList log;
};

}  // namespace tarnvex::desktop
