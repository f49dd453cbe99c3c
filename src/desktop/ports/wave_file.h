#pragma once

#include <sndfile.h>

#include <QString>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace tarnvex::desktop {

/// A 16-bit wave file with one channel, while it is being recorded. It gets its name once its
/// header is complete, and every write updates the header. So a program that is killed leaves a
/// playable file.
class WaveFile {
 public:
  static constexpr int kRate = 22050;

  /// Creates a file with a name that isn't taken: "name.wav", then "name (2).wav" and so on.
  /// Returns null and an error text on failure. `directory` is in the file system's encoding.
  static std::unique_ptr<WaveFile> create(const std::string& directory, const QString& name,
                                          QString& error);

  /// The name that the file got.
  [[nodiscard]] const QString& name() const { return name_; }

  /// Appends samples. False and an error text if not all of them could be written; the file then
  /// has part of them.
  bool write(std::span<const std::int16_t> samples, QString& error);
  /// Closes the file and reports an error that the file system only reports now. The destructor
  /// also closes the file, but reports nothing.
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
