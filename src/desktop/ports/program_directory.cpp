#include "desktop/ports/program_directory.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace tarnvex::desktop {
namespace {

const QString kSearchList = QStringLiteral("Searchlist.txt");

bool holdsProgram(const QDir& folder) {
  return QFileInfo(folder.path()).isWritable() && folder.exists(kSearchList);
}

/// Copies missing files, but only the first time: a list that the user has deleted stays deleted.
void fill(const QDir& folder) {
  const QDir share(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/tarnvex"));
  if (folder.exists() || !folder.mkpath(QStringLiteral("."))) {
    return;
  }
  const QString copy = folder.filePath(kSearchList);
  if (QFile::copy(share.filePath(kSearchList), copy)) {
    QFile::setPermissions(copy, QFile::permissions(copy) | QFile::WriteOwner);
  }
}

}  // namespace

QString programDirectory() {
  const QDir own(QCoreApplication::applicationDirPath());
  if (holdsProgram(own)) {
    return own.path();
  }
  const QDir data(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                  QStringLiteral("/Tarnvex"));
  fill(data);
  return data.path();
}

}  // namespace tarnvex::desktop
