#include "desktop/ports/wave_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <cstring>

namespace tarnvex::desktop {
namespace {

/// Players take no longer ones. Thirteen hours.
constexpr std::size_t kMostSamples = 0x3FFFFFC0;

/// The n-th name to try.
QByteArray numbered(const QString& name, int number) {
  if (number == 1) {
    return QFile::encodeName(name);
  }
  const auto point = name.lastIndexOf(QLatin1Char('.'));
  return QFile::encodeName(name.left(point) + QStringLiteral(" (%1)").arg(number) +
                           name.mid(point));
}

/// Calls `make` with one name after the other until it doesn't find the name taken.
template <class Make>
int firstFree(const std::string& directory, const QString& name, Make make) {
  for (int number = 1;; ++number) {
    const std::string path = directory + "/" + numbered(name, number).toStdString();
    const int result = make(path.c_str());
    if (result >= 0 || errno != EEXIST) {
      return result;
    }
  }
}

constexpr int kFlags = O_WRONLY | O_CLOEXEC;
constexpr mode_t kMode = 0666;

int openUnnamed(const std::string& directory) {
  return ::open(directory.c_str(), O_TMPFILE | kFlags, kMode);
}

int nameIt(int file, const std::string& directory, const QString& name) {
  const std::string link = "/proc/self/fd/" + std::to_string(file);
  return firstFree(directory, name, [&](const char* path) {
    return ::linkat(AT_FDCWD, link.c_str(), AT_FDCWD, path, AT_SYMLINK_FOLLOW);
  });
}

/// Where the file system knows no files without a name: the header follows at once.
int openNamed(const std::string& directory, const QString& name) {
  return firstFree(directory, name,
                   [](const char* path) { return ::open(path, O_CREAT | O_EXCL | kFlags, kMode); });
}

QString reason() {
  return QString::fromLocal8Bit(std::strerror(errno));
}

QString cannotMake(const QString& name, const QString& why) {
  return QStringLiteral("The recording \"%1\" could not be made: %2.").arg(name, why);
}

}  // namespace

std::unique_ptr<WaveFile> WaveFile::create(const std::string& directory, const QString& name,
                                           QString& error) {
  int handle = openUnnamed(directory);
  const bool unnamed = handle >= 0;
  if (!unnamed && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)) {
    handle = openNamed(directory, name);
  }
  if (handle < 0) {
    error = cannotMake(name, reason());
    return nullptr;
  }
  SF_INFO info{};
  info.samplerate = kRate;
  info.channels = 1;
  info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
  // The file owns the handle from here on.
  std::unique_ptr<WaveFile> file(new WaveFile(sf_open_fd(handle, SFM_WRITE, &info, SF_TRUE)));
  SNDFILE* sound = file->file_.get();
  if (sound == nullptr) {
    error = cannotMake(name, QString::fromLocal8Bit(sf_strerror(nullptr)));
    return nullptr;
  }
  sf_command(sound, SFC_SET_UPDATE_HEADER_AUTO, nullptr, SF_TRUE);
  sf_command(sound, SFC_UPDATE_HEADER_NOW, nullptr, 0);
  if (unnamed && nameIt(handle, directory, name) < 0) {
    error = cannotMake(name, reason());
    return nullptr;
  }
  return file;
}

bool WaveFile::write(std::span<const std::int16_t> samples, QString& error) {
  samples_ += samples.size();
  if (samples_ > kMostSamples) {
    error = QStringLiteral("The recording has become as long as a wave file can be.");
    return false;
  }
  const auto count = static_cast<sf_count_t>(samples.size());
  if (sf_write_short(file_.get(), samples.data(), count) != count) {
    error = QStringLiteral("The recording could not be written on: %1.")
                .arg(QString::fromLocal8Bit(sf_strerror(file_.get())).remove(QLatin1Char('.')));
    return false;
  }
  return true;
}

}  // namespace tarnvex::desktop
