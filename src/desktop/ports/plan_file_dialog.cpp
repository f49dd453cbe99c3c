#include "desktop/ports/plan_file_dialog.h"

#include <QFileInfo>
#include <QMessageBox>

namespace tarnvex::desktop {

PlanFileDialog::PlanFileDialog(QWidget* parent) : QFileDialog(parent) {
  setObjectName(QStringLiteral("fileDialog"));
  setOption(DontUseNativeDialog);
  // The program itself asks about existing files, in its own words, and New names a file in the
  // form for opening.
  setOption(DontConfirmOverwrite);
  setFileMode(AnyFile);
}

void PlanFileDialog::askBeforeReplacing(const QString& current) {
  asks_ = true;
  current_ = current;
}

QString PlanFileDialog::chosen() const {
  const QString path = selectedFiles().value(0);
  const QFileInfo file(path);
  const bool lacksSuffix = !file.fileName().contains(QLatin1Char('.')) && !file.exists();
  return suffix_.isEmpty() || !lacksSuffix ? path : path + QLatin1Char('.') + suffix_;
}

void PlanFileDialog::accept() {
  const QFileInfo file(chosen());
  if (!asks_ || !file.isFile() || file == QFileInfo(current_)) {
    QFileDialog::accept();
    return;
  }
  auto* question =
      new QMessageBox(QMessageBox::Warning, windowTitle(),
                      tr("%1 already exists. Do you want to replace it?").arg(file.fileName()),
                      QMessageBox::Yes | QMessageBox::No, this);
  question->setObjectName(QStringLiteral("replaceBox"));
  question->setAttribute(Qt::WA_DeleteOnClose);
  question->setTextFormat(Qt::PlainText);
  question->setDefaultButton(QMessageBox::No);
  question->setEscapeButton(QMessageBox::No);
  connect(question, &QDialog::finished, this, [this](int answer) {
    if (answer == QMessageBox::Yes) {
      QFileDialog::accept();
    }
  });
  question->open();
}

}  // namespace tarnvex::desktop
