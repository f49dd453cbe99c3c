#pragma once

#include <QObject>

namespace tarnvex::desktop {

/// Sees to it that selected text can be read in any palette: where the desktop's own colour for it
/// has a contrast of less than 4.5 to 1 against the highlight, it is black or white instead.
/// Follows every change of the desktop's palette for as long as it lives. The program has one.
class ReadableSelection : public QObject {
 public:
  /// After the QApplication.
  ReadableSelection();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace tarnvex::desktop
