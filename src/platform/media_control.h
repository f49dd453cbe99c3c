#pragma once

#include <memory>
#include <string>

#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// What a media control can be told to do.
enum class MediaCommand {
  Open,    ///< Makes ready to record; the last error is forgotten.
  Record,  ///< Begins to record the sound input to the file.
  Stop,    ///< Ends the recording.
  Save,    ///< Returns when what was recorded is in the file, or that has failed.
  Close,   ///< Lets the sound input go. Without a save before it the file keeps what it has.
};

/// Records the PC's sound input to a wave file, beside the program: sound doesn't pass through the
/// core. No command but `Save` and `Close` takes longer than a moment, and these turn the window's
/// events while they wait. A command that fails, or that has nothing to work on, does nothing.
class MediaControl : private NonCopyable {
 public:
  virtual ~MediaControl() = default;

  /// The file of the next recording: a folder as the file system spells it, and a name of core text
  /// without slashes or control characters. A file that exists is never written over: the recording
  /// then gets a number behind its name.
  virtual void setFileName(const std::string& directory, const std::string& name) = 0;
  virtual void command(MediaCommand command) = 0;
  /// What the first command since `Open` failed with; empty if none has.
  [[nodiscard]] virtual std::string errorMessage() const = 0;
};

/// Makes the media control of a main window.
class MediaControls : private NonCopyable {
 public:
  virtual ~MediaControls() = default;

  virtual std::unique_ptr<MediaControl> create() = 0;
};

}  // namespace tarnvex::platform
