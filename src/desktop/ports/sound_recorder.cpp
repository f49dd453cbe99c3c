#include "desktop/ports/sound_recorder.h"

#include <system_error>

#include "desktop/ports/text.h"

namespace tarnvex::desktop {

using platform::MediaCommand;

namespace {

constexpr int kLookMilliseconds = 5;

/// The system's part of an error may have characters that the core's encoding doesn't have.
std::string inCoreText(const QString& error) {
  bool dropped = false;
  std::string text = fromScreen(error, &dropped);
  return dropped ? fromScreen(error.section(QStringLiteral(": "), 0, 0)) + "." : text;
}

}  // namespace

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

void SoundRecorder::wait() {
  while (!capture_->over()) {
    loop_.waitForEvents(kLookMilliseconds);
  }
}

void SoundRecorder::command(MediaCommand command) {
  if (command == MediaCommand::Open) {
    error_.clear();
    saved_.clear();
    open_ = true;
  } else if (command == MediaCommand::Record) {
    record();
  } else if (capture_) {
    end(command);
  }
  open_ = open_ && command != MediaCommand::Close;
}

void SoundRecorder::end(MediaCommand command) {
  capture_->finish();
  if (command == MediaCommand::Stop) {
    return;
  }
  wait();
  if (error_.empty()) {
    error_ = inCoreText(capture_->error());
  }
  if (command == MediaCommand::Close) {
    saved_ = fromScreen(capture_->fileName());
    capture_.reset();
  }
}

}  // namespace tarnvex::desktop
