#pragma once

#include <QFileDialog>

namespace tarnvex::desktop {

/// The file dialog of the program's own files. It is Qt's own on every desktop: a desktop's dialog
/// can neither say on its Cancel button what Cancel does, nor ask about one file and not about
/// another.
class PlanFileDialog : public QFileDialog {
 public:
  explicit PlanFileDialog(QWidget* parent);

  /// Ask before a file that exists is chosen, unless it is this one.
  void askBeforeReplacing(const QString& current);
  /// Adds this suffix, without its point, to a typed name that has none and isn't a file's.
  void setSuffix(const QString& suffix) { suffix_ = suffix; }
  /// The chosen file, with its suffix.
  [[nodiscard]] QString chosen() const;

  void accept() override;

 private:
  bool asks_ = false;
  QString current_;
  QString suffix_;
};

}  // namespace tarnvex::desktop
