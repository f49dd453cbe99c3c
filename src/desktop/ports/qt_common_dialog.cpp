#include "desktop/ports/qt_common_dialog.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

#include "desktop/ports/text.h"
#include "desktop/ports/window_in_use.h"

namespace tarnvex::desktop {
namespace {

/// "Text(*.tvf)|*.tvf" as the desktop's dialog takes it, with all files behind it.
QStringList nameFilters(const std::string& filter) {
  QStringList filters;
  const QStringList parts = toScreen(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString words = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
    filters << QStringLiteral("%1 (%2)").arg(words, parts[i + 1]);
  }
  return filters << QObject::tr("All files (*)");
}

}  // namespace

std::optional<std::string> QtCommonDialog::chooseFile(platform::FileDialogKind kind) {
  if (gate_.ended()) {
    return std::string();
  }
  // Its window may go while the dialog stands, and takes the dialog along.
  const QPointer<QFileDialog> dialog = new QFileDialog(windowInUse());
  dialog->setObjectName(QStringLiteral("fileDialog"));
  const bool saving = kind == platform::FileDialogKind::Save;
  dialog->setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  // The program asks about files that exist, in its own words, and New names one in the open form.
  dialog->setFileMode(QFileDialog::AnyFile);
  dialog->setOption(QFileDialog::DontConfirmOverwrite);
  dialog->setNameFilters(nameFilters(Filter));
  if (!DialogTitle.empty()) {
    dialog->setWindowTitle(toScreen(DialogTitle));
  }
  if (!FileName.empty()) {
    const QFileInfo file(QFile::decodeName(FileName.c_str()));
    dialog->setDirectory(file.absolutePath());
    dialog->selectFile(file.fileName());
  }
  bool finished = false;
  bool accepted = false;
  QObject::connect(dialog, &QFileDialog::finished, [&](int result) {
    accepted = result == QDialog::Accepted;
    finished = true;
  });
  dialog->open();
  gate_.waitUntil([&] { return finished || dialog.isNull(); });
  // Not Cancel, after which a save goes on under the present name.
  const bool stopped = gate_.ended() || dialog.isNull() || isWithdrawn(*dialog);
  const QStringList chosen = dialog && accepted ? dialog->selectedFiles() : QStringList();
  delete dialog.data();
  if (stopped) {
    return std::string();
  }
  if (chosen.isEmpty()) {
    return std::nullopt;
  }
  return QFile::encodeName(chosen.first()).toStdString();
}

}  // namespace tarnvex::desktop
