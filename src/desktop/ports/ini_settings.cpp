#include "desktop/ports/ini_settings.h"

#include <QStandardPaths>

#include "desktop/ports/text.h"

namespace tarnvex::desktop {
namespace {

QString key(std::string_view section, std::string_view name) {
  return toScreen(section) + QLatin1Char('/') + toScreen(name);
}

}  // namespace

IniSettings::IniSettings(const QString& path) : file_(path, QSettings::IniFormat) {}

QString IniSettings::defaultPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/Tarnvex/Tarnvex.conf");
}

std::string IniSettings::getSetting(std::string_view section, std::string_view name,
                                    std::string_view fallback) const {
  const QVariant value = file_.value(key(section, name));
  return value.isValid() ? fromScreen(value.toString()) : std::string(fallback);
}

void IniSettings::saveSetting(std::string_view section, std::string_view name,
                              std::string_view text) {
  file_.setValue(key(section, name), toScreen(text));
  file_.sync();
}

QString IniSettings::allText() const {
  QString text;
  for (const QString& name : file_.allKeys()) {
    text += name + QLatin1Char('=') + file_.value(name).toString() + QLatin1Char('\n');
  }
  return text;
}

}  // namespace tarnvex::desktop
