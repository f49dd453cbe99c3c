#pragma once

#include <QFileDialog>
#include <functional>

namespace tarnvex::desktop {

/// The file dialog for the program's own files. It is Qt's own on every desktop, since a desktop's
/// dialog can neither say on its Cancel button what Cancel does, nor ask about some existing files
/// and not about others.
class PlanFileDialog : public QFileDialog {
 public:
  explicit PlanFileDialog(QWidget* parent);

  /// Asks before an existing file other than `own` is chosen, and before Cancel goes on with one:
  /// `kept` is the file that Cancel means, blank if there is none.
  void askBeforeReplacing(const QString& own, const QString& kept);

  void accept() override;
  void reject() override;

 private:
  /// Calls `goOn` at once, or after a Yes if the file must be asked about.
  void askAbout(const QString& path, const std::function<void()>& goOn);

  bool asks_ = false;
  QString own_;
  QString kept_;
};

}  // namespace tarnvex::desktop
