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
/// dragging moves it. Where the display server doesn't let a program place or raise its windows,
/// the window stays where the server puts it.
class QuickViewWindow : public QWidget {
 public:
  QuickViewWindow(shell::QuickViewForm& form, const PanelLayout& radio, platform::EventGate& gate);

  /// Dims the display while the line isn't live.
  void follow(const link::LinkState& line) { binding_.follow(line); }
  /// Shows a recording that runs, in the corner.
  void showRecording(const platform::Label& light) { new RecordingLight(light, this); }
  /// Runs the form's load and shows the window where the form wants it.
  void present();
  void leaveScreen();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  void askToClose();

  shell::QuickViewForm& form_;
  platform::EventGate& gate_;
  RadioPanel* display_;
  PanelBinding binding_;
  /// Where a press began that hasn't become a move.
  std::optional<QPoint> pressed_;
  bool placed_ = false;
};

}  // namespace tarnvex::desktop
