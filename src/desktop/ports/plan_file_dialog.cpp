#include "desktop/ports/plan_file_dialog.h"

#include <QFileInfo>
#include <QLabel>

#include "desktop/ports/plain_dialogs.h"
#include "desktop/ports/window_in_use.h"

namespace tarnvex::desktop {

PlanFileDialog::PlanFileDialog(QWidget* parent) : QFileDialog(parent) {
  setObjectName(QStringLiteral("fileDialog"));
  setOption(DontUseNativeDialog);
  // The program itself asks about existing files, in its own words, and New names a file in the
  // form for opening.
  setOption(DontConfirmOverwrite);
  setFileMode(AnyFile);
  // For screen readers, which name a drop-down list by what it shows.
  for (const auto& [label, box] :
       {std::pair{"lookInLabel", "lookInCombo"}, std::pair{"fileTypeLabel", "fileTypeCombo"}}) {
    findChild<QLabel*>(QLatin1String(label))->setBuddy(findChild<QWidget*>(QLatin1String(box)));
  }
}

void PlanFileDialog::askBeforeReplacing(const QString& own, const QString& kept) {
  asks_ = true;
  own_ = own;
  kept_ = kept;
}

void PlanFileDialog::accept() {
  askAbout(selectedFiles().value(0), [this] { QFileDialog::accept(); });
}

void PlanFileDialog::reject() {
  askAbout(isWithdrawn(*this) ? QString() : kept_, [this] { QFileDialog::reject(); });
}

void PlanFileDialog::askAbout(const QString& path, const std::function<void()>& goOn) {
  const QFileInfo file(path);
  if (!asks_ || !file.isFile() || file == QFileInfo(own_)) {
    goOn();
    return;
  }
  auto* question =
      makeMessageBox(QMessageBox::Warning, windowTitle(),
                     tr("%1 already exists. Do you want to replace it?").arg(file.fileName()),
                     QMessageBox::Yes | QMessageBox::No, this);
  question->setObjectName(QStringLiteral("replaceBox"));
  question->setAttribute(Qt::WA_DeleteOnClose);
  question->setDefaultButton(QMessageBox::No);
  connect(question, &QDialog::finished, this, [goOn](int answer) {
    if (answer == QMessageBox::Yes) {
      goOn();
    }
  });
  question->open();
}

}  // namespace tarnvex::desktop
