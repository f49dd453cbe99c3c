#pragma once

#include <sndfile.h>

#include <QString>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace tarnvex::desktop {

/// A 16-bit wave file of one channel that is being recorded. It gets its name when its header is
/// whole, and the header follows the sound at every write: whenever the program is killed, a
/// playable file stays.
class WaveFile {
 public:
  static constexpr int kRate = 22050;

  /// Makes a file, under a name that none has yet: "name.wav", then "name (2).wav" and so on.
  /// Null and an error text if that fails. `directory` is as the file system spells it.
  static std::unique_ptr<WaveFile> create(const std::string& directory, const QString& name,
                                          QString& error);

  /// The name it has got.
  [[nodiscard]] const QString& name() const { return name_; }

  /// Appends samples. False and an error text if not all of them could be written; the file then
  /// holds what it held and part of these.
  bool write(std::span<const std::int16_t> samples, QString& error);
  /// Closes the file, and tells what the file system has kept back until then. A file that is
  /// destroyed without it is closed without a word.
  bool close(QString& error);

 private:
  struct Close {
    void operator()(SNDFILE* file) const { sf_close(file); }
  };

  explicit WaveFile(SNDFILE* file) : file_(file) {}
  static std::unique_ptr<WaveFile> withHeader(int handle, const QString& name, QString& error);

  std::unique_ptr<SNDFILE, Close> file_;
  std::size_t samples_ = 0;
  QString name_;
};

}  // namespace tarnvex::desktop
