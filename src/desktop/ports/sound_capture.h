#pragma once

#include <QString>
#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>

#include "desktop/ports/pulse_context.h"
#include "platform/non_copyable.h"

namespace tarnvex::desktop {

class WaveFile;

/// Records the sound server's default source to a wave file, from its construction until `finish`.
/// It works in a thread of its own, so that a busy window doesn't disturb the recording and a slow
/// server or disk doesn't disturb the window. To be used from one thread only.
class SoundCapture : private platform::NonCopyable {
 public:
  /// See `WaveFile::create`.
  SoundCapture(std::string directory, QString name);
  /// Waits for the end of the recording.
  ~SoundCapture();

  /// Asks for the end of the recording. Usually it is `over` in a moment. If the server doesn't
  /// answer, the capture gives up two seconds after its start.
  void finish();
  /// Whether the file is open and nothing has gone wrong so far.
  [[nodiscard]] bool recording() const { return state_ == State::Recording && !over_; }
  /// Whether the file is closed. Nothing happens after that.
  [[nodiscard]] bool over() const { return over_; }
  /// What went wrong. Empty if nothing did. Valid once the capture is over.
  [[nodiscard]] const QString& error() const { return error_; }
  /// The file's name. Empty if none was created. Valid once the capture is over.
  [[nodiscard]] const QString& fileName() const { return fileName_; }

 private:
  enum class State { Going, Recording, Over };

  void run();
  void record();
  [[nodiscard]] bool isEnough() const;
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
  PulseContext pulse_;
  pa_stream* stream_ = nullptr;
  std::unique_ptr<WaveFile> file_;
  std::atomic<State> state_ = State::Going;
  std::atomic<bool> finishing_ = false;
  std::atomic<bool> over_ = false;
  std::thread thread_;
};

}  // namespace tarnvex::desktop
