#include "desktop/ports/sound_recorder.h"

#include <system_error>

#include "desktop/ports/text.h"

namespace tarnvex::desktop {

using platform::MediaCommand;

void SoundRecorder::setFileName(const std::string& directory, const std::string& name) {
  directory_ = directory;
  name_ = toScreen(name);
}

void SoundRecorder::record() {
  if (!open_ || capture_) {
    return;
  }
  try {
    capture_.emplace(directory_, name_);
  } catch (const std::system_error& noThread) {
    error_ = noThread.what();
  }
}

void SoundRecorder::command(MediaCommand command) {
  switch (command) {
    case MediaCommand::Open:
      error_.clear();
      open_ = true;
      break;
    case MediaCommand::Record:
      record();
      break;
    case MediaCommand::Stop:
      if (capture_) {
        capture_->finish();
      }
      break;
    case MediaCommand::Save:
      if (capture_ && !capture_->error().isEmpty()) {
        error_ = fromScreen(capture_->error());
      }
      break;
    case MediaCommand::Close:
      capture_.reset();
      open_ = false;
      break;
  }
}

}  // namespace tarnvex::desktop
