#pragma once

#include <memory>
#include <optional>

#include "desktop/ports/sound_capture.h"
#include "desktop/ports/sound_look.h"
#include "platform/event_loop.h"
#include "platform/media_control.h"

namespace tarnvex::desktop {

/// The media control on the desktop's sound server (PulseAudio, or PipeWire in its place). It
/// records the user's default input. The server shares inputs, so other programs can use the same
/// one meanwhile.
class SoundRecorder : public platform::MediaControl {
 public:
  explicit SoundRecorder(platform::EventLoop& loop) : loop_(loop) {}

  void setFileName(const std::string& directory, const std::string& name) override;
  void command(platform::MediaCommand command) override;
  [[nodiscard]] std::string errorMessage() const override { return error_; }
  [[nodiscard]] bool recording() const override { return capture_ && capture_->recording(); }
  [[nodiscard]] std::string savedFile() const override { return saved_; }
  void lookForSound(Told told) override { look_ = std::make_unique<SoundLook>(std::move(told)); }

 private:
  void record();
  void end(platform::MediaCommand command);
  /// Waits until the recording is over.
  void wait();

  platform::EventLoop& loop_;
  std::string directory_;
  QString name_;
  std::string error_;
  std::string saved_;
  bool open_ = false;
  std::optional<SoundCapture> capture_;
  std::unique_ptr<SoundLook> look_;
};

}  // namespace tarnvex::desktop
