#include "monitor/recording.h"

#include <algorithm>

namespace tarnvex::monitor {
namespace {

/// Keeps the name within the limit of file systems, which is 255 bytes. A character may need three.
constexpr std::size_t kLongestTag = 70;

/// Replaces a character that a file name can't contain or that would be unreadable in one.
char inFileName(char character) {
  if (character == '/' || character == '\\') {
    return '-';
  }
  if (character == ':') {
    return '.';
  }
  const auto code = static_cast<unsigned char>(character);
  return code < ' ' || code == 0x7F ? ' ' : character;
}

}  // namespace

std::string recordingName(const std::string& tag, const std::string& frequency,
                          const std::string& time) {
  const std::string& what = tag.empty() ? frequency : tag;
  std::string name = what.substr(0, kLongestTag) + "-" + time + ".wav";
  std::ranges::transform(name, name.begin(), inFileName);
  return name;
}

Recording::Recording(RecordingOutside outside) : outside_(std::move(outside)) {
  chkRecord.onClick = [this] { lookForSound(); };
  lightTimer.onTick = [this] { showLight(); };
}

void Recording::lookForSound() {
  showMissing({});
  if (chkRecord.value()) {
    outside_.MMControl1.lookForSound([this](const std::string& what) {
      outside_.gate.enter([this, what] { showMissing(chkRecord.value() ? what : ""); });
    });
  }
}

void Recording::showMissing(const std::string& what) {
  missing.setCaption(what);
  missing.setVisible(!what.empty());
}

void Recording::gate(bool active, const std::string& tag, const std::string& frequency) {
  if (!active) {
    if (outside_.state.Recording) {
      stop();
    }
  } else if (chkRecord.value() && !outside_.state.Recording) {
    start(tag, frequency);
  }
  showLight();
}

void Recording::showLight() {
  constexpr std::int64_t kMinute = 60;
  lightTimer.setEnabled(outside_.state.Recording);
  light.setVisible(outside_.state.Recording && outside_.MMControl1.recording());
  if (light.visible()) {
    const std::int64_t seconds = outside_.clock.seconds() - started_;
    const std::string rest = std::to_string(seconds % kMinute);
    light.setCaption("REC " + std::to_string(seconds / kMinute) + (rest.size() < 2 ? ":0" : ":") +
                     rest);
  }
}

void Recording::start(const std::string& tag, const std::string& frequency) {
  auto& control = outside_.MMControl1;
  control.setFileName(outside_.programDirectory,
                      recordingName(tag, frequency, outside_.clock.now()));
  control.command(platform::MediaCommand::Open);
  control.command(platform::MediaCommand::Record);
  outside_.state.Recording = true;
  started_ = outside_.clock.seconds();
  outside_.receptions.recordingBegins();
}

/// The message is shown after the tick, so that the poll goes on while it is open.
void Recording::stop() {
  auto& control = outside_.MMControl1;
  control.command(platform::MediaCommand::Stop);
  control.command(platform::MediaCommand::Save);
  if (const std::string error = control.errorMessage(); !error.empty()) {
    outside_.gate.enter([&dialogs = outside_.dialogs, error] {
      dialogs.messageBox(error, "Audio Record Error Occurred", platform::kWarning);
    });
    chkRecord.setValue(false);
  }
  control.command(platform::MediaCommand::Close);
  outside_.state.Recording = false;
  outside_.receptions.recordingEnds(control.savedFile());
}

void Recording::leave() {
  if (outside_.state.Recording) {
    outside_.receptions.recordingEnds(outside_.MMControl1.savedFile());
  }
}

}  // namespace tarnvex::monitor
