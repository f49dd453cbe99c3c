#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// The commands of a media control.
enum class MediaCommand {
  Open,    ///< Prepares to record and forgets the last error.
  Record,  ///< Starts recording the sound input to the file.
  Stop,    ///< Ends the recording.
  Save,    ///< Returns when the recording is in the file, or when saving has failed.
  Close,   ///< Releases the sound input. The file keeps what it has, saved or not.
};

/// Records the PC's sound input to a wave file, alongside the program: sound doesn't pass through
/// the core. `Save` and `Close` may take a while and deliver the window's events while they wait;
/// every other command returns at once. A command that fails, or has nothing to work on, does
/// nothing.
class MediaControl : private NonCopyable {
 public:
  virtual ~MediaControl() = default;

  /// The file of the next recording: a folder as the file system spells it, and a name in core text
  /// without slashes or control characters. An existing file is never overwritten: the new
  /// recording gets a number after its name.
  virtual void setFileName(const std::string& directory, const std::string& name) = 0;
  virtual void command(MediaCommand command) = 0;
  /// The first error since `Open`, or empty.
  [[nodiscard]] virtual std::string errorMessage() const = 0;
  /// Whether the sound is being written to a file: the file is open, and there was no error.
  [[nodiscard]] virtual bool recording() const = 0;
  /// Name of the last file that was recorded, empty if there is none. Valid once the recording is
  /// closed.
  [[nodiscard]] virtual std::string savedFile() const = 0;

  /// Hears what is missing for a recording, in a sentence. Empty if nothing is.
  using Told = std::function<void(const std::string& missing)>;
  /// Looks whether there is a sound input, without waiting: `told` is called once from the event
  /// loop, a moment later. A newer look, or the end of the control, drops an older one's answer.
  virtual void lookForSound(Told told) = 0;
};

/// Makes the media control of a main window.
using MediaControlMaker = std::function<std::unique_ptr<MediaControl>()>;

}  // namespace tarnvex::platform
