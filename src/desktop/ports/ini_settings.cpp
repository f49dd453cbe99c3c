#include "desktop/ports/ini_settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "desktop/ports/text.h"
#include "files/ini_text.h"

namespace tarnvex::desktop {
namespace {

std::string utf8(std::string_view text) {
  return toScreen(text).toStdString();
}

}  // namespace

IniSettings::IniSettings(const QString& path) : IniSettings(path, machineCalls_) {}

IniSettings::IniSettings(const QString& path, files::FileCalls& calls)
    : files_(calls),
      folder_(QFileInfo(path).absolutePath()),
      path_(QFile::encodeName(path).toStdString()) {}

QString IniSettings::defaultPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/Tarnvex/Tarnvex.conf");
}

/// A missing file counts as empty.
platform::Failure IniSettings::read(std::string& content) const {
  platform::SequentialFiles files(files_);
  return files_.exists(path_) ? files.contentOf(path_, content) : std::nullopt;
}

std::string IniSettings::getSetting(std::string_view section, std::string_view name,
                                    std::string_view fallback) const {
  const auto unsaved = unsaved_.find({utf8(section), utf8(name)});
  std::optional<std::string> value;
  if (unsaved != unsaved_.end()) {
    value = unsaved->second;
  } else if (std::string content; !read(content)) {
    value = files::iniValue(content, utf8(section), utf8(name));
  }
  return value ? fromScreen(QString::fromStdString(*value)) : std::string(fallback);
}

void IniSettings::saveSetting(std::string_view section, std::string_view name,
                              std::string_view text) {
  unsaved_[{utf8(section), utf8(name)}] = utf8(text);
  const auto failure = saveAll();
  if (!failure) {
    unsaved_.clear();
  } else if (!failed_ && onFailure) {
    onFailure(*failure);
  }
  failed_ = failure.has_value();
}

QString IniSettings::allText() const {
  std::string content;
  read(content);
  QString section;
  QString text;
  const QStringList lines = QString::fromStdString(content).split(QLatin1Char('\n'));
  for (const QString& line : lines) {
    if (line.startsWith(QLatin1Char('['))) {
      section = line.mid(1, line.indexOf(QLatin1Char(']')) - 1) + QLatin1Char('/');
    } else if (!line.trimmed().isEmpty()) {
      text += section + line.trimmed() + QLatin1Char('\n');
    }
  }
  return text;
}

/// Reads the file again first, since another program may have saved a value in it. A file that
/// can't be read isn't overwritten.
platform::Failure IniSettings::saveAll() {
  QDir().mkpath(folder_);
  std::string content;
  if (auto failure = read(content)) {
    return failure;
  }
  for (const auto& [key, value] : unsaved_) {
    content = files::withIniValue(content, key.first, key.second, value);
  }
  return files_.replace(path_, content);
}

}  // namespace tarnvex::desktop
