#pragma once

#include <string>

#include "monitor/reception.h"
#include "platform/clock.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/event_gate.h"
#include "platform/media_control.h"
#include "platform/shared_state.h"

namespace tarnvex::monitor {

/// Name of the wave file of a reception: its tag, or its frequency where there is no tag, and the
/// time (in the form of `Clock::now`). Always a valid file name of moderate length.
std::string recordingName(const std::string& tag, const std::string& frequency,
                          const std::string& time);

/// What the recording uses. Everything it refers to outlives the recording.
struct RecordingOutside {
  platform::MediaControl& MMControl1;
  platform::SharedState& state;
  platform::EventGate& gate;
  platform::Dialogs& dialogs;
  const platform::Clock& clock;
  /// Told of the files.
  ReceptionListener& receptions;
  /// Where the files go.
  std::string programDirectory;
};

/// With `chkRecord` ticked, records the PC's sound input for as long as the radio's display shows a
/// reception, each to a file of its own. Failures never disturb the poll. The user is told once,
/// after the recording has stopped, and the box is unticked.
class Recording {
 public:
  explicit Recording(RecordingOutside outside) : outside_(std::move(outside)) {}

  /// Called once a tick with what the last tick left on the display. A recording that is running
  /// goes on to the end of its reception, even if the box is unticked meanwhile.
  void gate(bool active, const std::string& tag, const std::string& frequency);
  /// The window goes: what is being recorded belongs to what was heard until now.
  void leave();

  platform::CheckBox chkRecord{"chkRecord", "Record Output to File"};
  /// "REC 1:05", lit while a file is open.
  platform::Label light{"RecordingLight", "", false};

 private:
  void showLight();
  void start(const std::string& tag, const std::string& frequency);
  void stop();

  RecordingOutside outside_;
  /// The clock's seconds when the file was opened.
  std::int64_t started_ = 0;
};

}  // namespace tarnvex::monitor
