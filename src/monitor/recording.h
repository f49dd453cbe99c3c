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

/// The name of a reception's wave file: the tag, or the frequency if there is no tag, and the time
/// (in the form of `Clock::now`). Always a valid file name of moderate length.
std::string recordingName(const std::string& tag, const std::string& frequency,
                          const std::string& time);

/// What the recording uses. All of it outlives the recording.
struct RecordingOutside {
  platform::MediaControl& MMControl1;
  platform::SharedState& state;
  platform::EventGate& gate;
  platform::Dialogs& dialogs;
  const platform::Clock& clock;
  /// Is notified of the files.
  ReceptionListener& receptions;
  /// The folder for the files.
  std::string programDirectory;
};

/// While `chkRecord` is ticked, records the PC's sound input whenever the radio's display shows a
/// reception, each one to a file of its own. Failures never disturb the poll: the user sees one
/// message after the recording has stopped, and the box is unticked.
class Recording {
 public:
  explicit Recording(RecordingOutside outside);

  /// Called once per tick with what the last tick left on the display. A running recording goes on
  /// to the end of its reception, even if the box is unticked meanwhile.
  void gate(bool active, const std::string& tag, const std::string& frequency);
  /// Called when the window closes. Reports the file of the running recording.
  void leave();

  platform::CheckBox chkRecord{"chkRecord", "Record Output to File"};
  /// "REC 1:05", visible while sound is being written to a file.
  platform::Label light{"RecordingLight", "", false};
  /// Keeps the light up to date during a reception: a tick may take minutes, and the sound may end
  /// before the reception does.
  platform::Timer lightTimer{500};
  /// While the box is ticked: what is missing for a recording, in a sentence such as "No sound
  /// input: nothing will be recorded." It was looked for when the box was ticked; a failure later
  /// has its message.
  platform::Label missing{"RecordingMissing", "", false};

 private:
  void lookForSound();
  void showMissing(const std::string& what);
  void showLight();
  void start(const std::string& tag, const std::string& frequency);
  void stop();

  RecordingOutside outside_;
  /// The clock's seconds when the recording was started.
  std::int64_t started_ = 0;
};

}  // namespace tarnvex::monitor
