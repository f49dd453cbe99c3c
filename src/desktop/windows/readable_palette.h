#pragma once

#include <QObject>

namespace tarnvex::desktop {

/// Sees to it that selected text and the placeholders of empty boxes can be read in any palette:
/// where the desktop's own colour for them has a contrast of less than 4.5 to 1, they get another.
/// Follows every change of the desktop's palette for as long as it lives. The program has one.
class ReadablePalette : public QObject {
 public:
  /// After the QApplication.
  ReadablePalette();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace tarnvex::desktop
