#pragma once

#include <QFileDialog>

namespace tarnvex::desktop {

/// The file dialog for the program's own files. It is Qt's own on every desktop, since a desktop's
/// dialog can neither say on its Cancel button what Cancel does, nor ask about some existing files
/// and not about others.
class PlanFileDialog : public QFileDialog {
 public:
  explicit PlanFileDialog(QWidget* parent);

  /// Asks before the user chooses an existing file other than `current`.
  void askBeforeReplacing(const QString& current);
  /// Adds this suffix, without its dot, to a typed name that has none and isn't that of an existing
  /// file.
  void setSuffix(const QString& suffix) { suffix_ = suffix; }
  /// The chosen file, including its suffix.
  [[nodiscard]] QString chosen() const;

  void accept() override;

 private:
  bool asks_ = false;
  QString current_;
  QString suffix_;
};

}  // namespace tarnvex::desktop
