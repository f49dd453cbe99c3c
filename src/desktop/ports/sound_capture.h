#pragma once

#include <QString>
#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>

#include "platform/non_copyable.h"

struct pa_context;
struct pa_mainloop;
struct pa_stream;

namespace tarnvex::desktop {

class WaveFile;

/// Records the sound server's default source to a wave file, from its making until `finish`. It
/// works in a thread of its own, so that neither a busy window nor a slow server or disk costs the
/// other anything. Only one thread uses it.
class SoundCapture : private platform::NonCopyable {
 public:
  /// See `WaveFile::create`.
  SoundCapture(std::string directory, QString name);
  /// Waits for the end.
  ~SoundCapture();

  /// Asks for the end of the recording. It is `over` in a moment, as a rule; a server that doesn't
  /// answer is given up two seconds after the start.
  void finish();
  /// The file is closed, and nothing more happens.
  [[nodiscard]] bool over() const { return over_; }
  /// What went wrong, empty if nothing did. To be asked once it is over.
  [[nodiscard]] const QString& error() const { return error_; }
  /// The file's name, empty if none was made; likewise.
  [[nodiscard]] const QString& fileName() const { return fileName_; }

 private:
  enum class State { Going, Recording, Over };

  void run();
  void record();
  void connectContext();
  [[nodiscard]] bool isEnough(State state) const;
  void turn();
  State work();
  State connectStream();
  State takeSound();
  State fail(const QString& error);
  [[nodiscard]] QString serverError() const;

  std::string directory_;
  QString name_;
  QString error_;
  QString fileName_;
  std::chrono::steady_clock::time_point started_ = std::chrono::steady_clock::now();
  struct FreeLoop {
    void operator()(pa_mainloop* loop) const;
  };
  std::unique_ptr<pa_mainloop, FreeLoop> loop_;
  pa_context* context_ = nullptr;
  pa_stream* stream_ = nullptr;
  std::unique_ptr<WaveFile> file_;
  std::atomic<bool> finishing_ = false;
  std::atomic<bool> over_ = false;
  std::thread thread_;
};

}  // namespace tarnvex::desktop
