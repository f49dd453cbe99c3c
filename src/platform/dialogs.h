#pragma once

#include <optional>
#include <string>

#include "platform/controls.h"
#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// Flags of a message box: the icon (16 error, 32 question, 48 warning) plus the
/// buttons (0 OK, 1 OK and Cancel, 4 Yes and No).
enum MessageFlags : int {
  kErrorIcon = 16,
  kYesNoQuestion = 36,
  kWarning = 48,
  kOkCancelWarning = 49,
  kYesNoWarning = 52,
};

enum class Answer : int { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// Message boxes and everything else that the core shows the user, apart from windows.
class Dialogs : private NonCopyable {
 public:
  virtual ~Dialogs() = default;

  /// Shows a message box and returns the answer. The poll goes on meanwhile. If the user closes the
  /// box without a button, or the program ends, the answer is the one that changes least: No,
  /// Cancel, or OK if there is nothing else.
  virtual Answer messageBox(const std::string& text, const std::string& title,
                            MessageFlags flags) = 0;
  /// Asks a question whose Yes destroys something. The button that Enter presses is No.
  virtual Answer askToDestroy(const std::string& text, const std::string& title,
                              MessageFlags flags) {
    return messageBox(text, title, flags);
  }
  /// Asks for a line of text. The poll goes on meanwhile. Empty if the user cancelled or the
  /// program has ended.
  virtual std::string inputBox(const std::string& prompt, const std::string& title) = 0;
  /// Asks for a colour, starting from `current`. The poll goes on meanwhile. Nothing if the user
  /// cancelled or the program has ended.
  virtual std::optional<Colour> chooseColour(Colour current) = 0;
  virtual void beep() = 0;
  /// Shows the hourglass (true) or the arrow over all windows.
  virtual void setBusyPointer(bool busy) = 0;
};

}  // namespace tarnvex::platform
