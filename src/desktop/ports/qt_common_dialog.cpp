#include "desktop/ports/qt_common_dialog.h"

#include <QFile>
#include <QFileInfo>
#include <QPointer>

#include "desktop/ports/run_dialog.h"
#include "desktop/ports/text.h"
#include "desktop/ports/window_in_use.h"

namespace tarnvex::desktop {
namespace {

/// Converts "Text(*.tvf)|*.tvf" to the form of Qt's dialog, and adds "All files".
QStringList nameFilters(const std::string& filter) {
  QStringList filters;
  const QStringList parts = toScreen(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString words = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
    filters << QStringLiteral("%1 (%2)").arg(words, parts[i + 1]);
  }
  return filters << QObject::tr("All files (*)");
}

/// Makes sure that an ampersand in a file's name isn't taken for a mnemonic.
QString asCaption(QString text) {
  return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace

/// Sets up names, captions and the first choice. Cancel goes on with the current file, so its
/// button says so.
void QtCommonDialog::prepare(PlanFileDialog& dialog) const {
  dialog.setNameFilters(nameFilters(Filter));
  dialog.setSuffix(toScreen(DefaultExt));
  if (!DialogTitle.empty()) {
    dialog.setWindowTitle(toScreen(DialogTitle));
  }
  if (!AcceptCaption.empty()) {
    dialog.setLabelText(QFileDialog::Accept, toScreen(AcceptCaption));
  }
  const QString current = QFile::decodeName(FileName.c_str());
  if (AsksBeforeReplacing) {
    dialog.askBeforeReplacing(current);
  }
  begin(dialog, current);
}

/// Shows the dialog where the file in use is, if there is one.
void QtCommonDialog::begin(PlanFileDialog& dialog, const QString& current) const {
  if (!current.isEmpty()) {
    const QFileInfo file(current);
    dialog.setDirectory(file.absolutePath());
    dialog.selectFile(file.fileName());
    if (!KeepCaption.empty()) {
      dialog.setLabelText(QFileDialog::Reject,
                          asCaption(toScreen(KeepCaption) + QLatin1Char(' ') + file.fileName()));
    }
  } else if (!InitDir.empty()) {
    dialog.setDirectory(QFile::decodeName(InitDir.c_str()));
  } else if (!DefaultExt.empty()) {
    dialog.selectFile(QObject::tr("Untitled") + QLatin1Char('.') + toScreen(DefaultExt));
  }
}

std::optional<std::string> QtCommonDialog::chooseFile(platform::FileDialogKind kind) {
  if (gate_.ended()) {
    return std::string();
  }
  // If the window below closes while the dialog is open, it destroys the dialog.
  const QPointer<PlanFileDialog> dialog = new PlanFileDialog(windowInUse());
  const bool saving = kind == platform::FileDialogKind::Save;
  dialog->setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  prepare(*dialog);
  const bool accepted = runDialog(dialog, gate_) == QDialog::Accepted;
  // This must not count as Cancel, after which a save goes on under the present name.
  const bool stopped = gate_.ended() || dialog.isNull() || isWithdrawn(*dialog);
  const QString chosen = accepted ? dialog->chosen() : QString();
  delete dialog.data();
  if (stopped) {
    return std::string();
  }
  return chosen.isEmpty() ? std::nullopt : std::optional(QFile::encodeName(chosen).toStdString());
}

}  // namespace tarnvex::desktop
