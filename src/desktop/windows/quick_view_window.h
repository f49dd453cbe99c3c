#pragma once

#include <QWidget>
#include <optional>

#include "desktop/panel/panel_layout.h"
#include "desktop/windows/panel_binding.h"
#include "desktop/windows/recording_light.h"
#include "platform/event_gate.h"
#include "shell/quick_view.h"

namespace tarnvex::desktop {

/// The radio's display in a small window above all others. A click or any key closes it, and
/// dragging moves it. If the display server doesn't let programs place or raise their windows, the
/// window stays where the server puts it.
class QuickViewWindow : public QWidget {
 public:
  QuickViewWindow(shell::QuickViewForm& form, const PanelLayout& radio, platform::EventGate& gate);

  /// Dims the display while the line isn't live.
  void follow(const link::LinkState& line) { binding_.follow(line); }
  /// Shows on the display that a recording is running.
  void showRecording(const platform::Label& light);
  /// Calls the form's load and shows the window at the form's position.
  void present();
  void leaveScreen();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  void addDisplay();
  void askToClose();
  void placeLight();

  shell::QuickViewForm& form_;
  platform::EventGate& gate_;
  RadioPanel* display_;
  PanelBinding binding_;
  RecordingLight* light_ = nullptr;
  platform::Connection lightChanged_;
  /// Where the current press began, until it becomes a drag.
  std::optional<QPoint> pressed_;
  bool placed_ = false;
};

}  // namespace tarnvex::desktop
