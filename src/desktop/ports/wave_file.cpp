#include "desktop/ports/wave_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <cstring>

namespace tarnvex::desktop {
namespace {

/// The most that players accept: thirteen hours.
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

/// Calls `make` with one name after another until the name isn't taken. `name` becomes the name
/// that was used.
template <class Make>
int firstFree(const std::string& directory, QString& name, Make make) {
  for (int number = 1;; ++number) {
    const QByteArray tried = numbered(name, number);
    const int result = make((directory + "/" + tried.toStdString()).c_str());
    if (result >= 0 || errno != EEXIST) {
      name = QFile::decodeName(tried);
      return result;
    }
  }
}

constexpr int kFlags = O_WRONLY | O_CLOEXEC;
constexpr mode_t kMode = 0666;

int openUnnamed(const std::string& directory) {
  return ::open(directory.c_str(), O_TMPFILE | kFlags, kMode);
}

int nameIt(int file, const std::string& directory, QString& name) {
  const std::string link = "/proc/self/fd/" + std::to_string(file);
  return firstFree(directory, name, [&](const char* path) {
    return ::linkat(AT_FDCWD, link.c_str(), AT_FDCWD, path, AT_SYMLINK_FOLLOW);
  });
}

int openNamed(const std::string& directory, QString& name) {
  return firstFree(directory, name,
                   [](const char* path) { return ::open(path, O_CREAT | O_EXCL | kFlags, kMode); });
}

/// The last error of the system, in English like all messages.
QString reason() {
  return QString::fromLatin1(strerrordesc_np(errno));
}

/// The library's description of a failure, for use within a sentence.
QString reason(const char* text) {
  QString said = QString::fromLocal8Bit(text).remove(QStringLiteral("System error : "));
  while (said.endsWith(QLatin1Char('.'))) {
    said.chop(1);
  }
  return said;
}

QString cannotMake(const QString& name, const QString& why) {
  return QStringLiteral("The recording \"%1\" could not be made: %2.").arg(name, why);
}

QString cannotGoOn(const QString& why) {
  return QStringLiteral("The recording could not be continued: %1.").arg(why);
}

}  // namespace

std::unique_ptr<WaveFile> WaveFile::withHeader(int handle, const QString& name, QString& error) {
  SF_INFO info{};
  info.samplerate = kRate;
  info.channels = 1;
  info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
  // From here on the library owns the handle.
  SNDFILE* sound = sf_open_fd(handle, SFM_WRITE, &info, SF_TRUE);
  if (sound == nullptr) {
    error = cannotMake(name, reason(sf_strerror(nullptr)));
    return nullptr;
  }
  sf_command(sound, SFC_SET_UPDATE_HEADER_AUTO, nullptr, SF_TRUE);
  sf_command(sound, SFC_UPDATE_HEADER_NOW, nullptr, 0);
  return std::unique_ptr<WaveFile>(new WaveFile(sound));
}

std::unique_ptr<WaveFile> WaveFile::create(const std::string& directory, const QString& name,
                                           QString& error) {
  // If the file system supports it, the file has no name until its header is complete. Otherwise
  // the header is written just after the file has been created.
  for (const bool unnamed : {true, false}) {
    QString got = name;
    const int handle = unnamed ? openUnnamed(directory) : openNamed(directory, got);
    if (handle < 0) {
      error = cannotMake(name, reason());
      continue;
    }
    auto file = withHeader(handle, name, error);
    if (!file || !unnamed || nameIt(handle, directory, got) >= 0) {
      if (file) {
        file->name_ = got;
      }
      return file;
    }
  }
  return nullptr;
}

bool WaveFile::write(std::span<const std::int16_t> samples, QString& error) {
  samples_ += samples.size();
  if (samples_ > kMostSamples) {
    error = QStringLiteral("The recording has reached the greatest length of a wave file.");
    return false;
  }
  const auto count = static_cast<sf_count_t>(samples.size());
  if (sf_write_short(file_.get(), samples.data(), count) != count) {
    error = cannotGoOn(reason(sf_strerror(file_.get())));
    return false;
  }
  return true;
}

bool WaveFile::close(QString& error) {
  if (const int failure = sf_close(file_.release()); failure != 0) {
    error = cannotGoOn(reason(sf_error_number(failure)));
    return false;
  }
  return true;
}

}  // namespace tarnvex::desktop
