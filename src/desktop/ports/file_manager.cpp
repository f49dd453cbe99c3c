#include "desktop/ports/file_manager.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace tarnvex::desktop {
namespace {

/// The interface that the desktops' file managers have in common.
QDBusMessage showItems(const QString& file) {
  QDBusMessage message = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.FileManager1"),
      QStringLiteral("/org/freedesktop/FileManager1"),
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
  const QStringList items{QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded)};
  message << items << QString();
  return message;
}

void openFolder(const QString& file) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(file).path()));
}

}  // namespace

void showInFileManager(const QString& file) {
  const QDBusConnection bus = QDBusConnection::sessionBus();
  if (!QFileInfo::exists(file) || !bus.isConnected()) {
    return openFolder(file);
  }
  auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(showItems(file)));
  QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, file] {
    if (answer->isError()) {
      openFolder(file);
    }
    answer->deleteLater();
  });
}

}  // namespace tarnvex::desktop
