#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// The two file dialogs of the system.
enum class FileDialogKind { Open, Save };

/// The file dialog of a window. Every window that needs one has its own, since the chosen name is
/// remembered from one use to the next.
///
/// File names are bytes, as the file system has them. Whoever displays a name decodes it the way
/// the system does.
class CommonDialog : private NonCopyable {
 public:
  virtual ~CommonDialog() = default;

  /// Shows the dialog, starting from `FileName`, and stores the chosen path there. Deliberate: a
  /// cancelled dialog leaves `FileName` as it is, so the caller can't tell Cancel from OK unless
  /// the name is blank.
  void ShowOpen() { show(FileDialogKind::Open); }
  void ShowSave() { show(FileDialogKind::Save); }

  /// Full path of the file that was chosen last, or set by the program.
  std::string FileName;
  /// Pairs of description and pattern, such as "APF Files (*.apf)|*.apf".
  std::string Filter;
  /// Blank for the system's default title.
  std::string DialogTitle;
  /// The suffix that a typed name gets if it has none, without the dot. Blank for none.
  std::string DefaultExt;
  /// The folder to begin in while `FileName` is blank. Blank for the system's choice.
  std::string InitDir;
  /// The caption of the button that accepts the file. Blank for the system's own.
  std::string AcceptCaption;
  /// What Cancel does while there is a `FileName` to go on with, such as "Save to". It becomes the
  /// button's caption, with the file's name after it. Blank for the system's own.
  std::string KeepCaption;
  /// Whether the dialog itself asks before it accepts an existing file other than `FileName`.
  bool AsksBeforeReplacing = false;

 protected:
  /// Shows the system's dialog. Returns nothing if the user cancelled, and an empty name if the
  /// program has ended or the dialog's window is gone. `FileName` is then blank, which stops every
  /// command, even one that would ask again.
  virtual std::optional<std::string> chooseFile(FileDialogKind kind) = 0;

 private:
  void show(FileDialogKind kind) {
    if (auto chosen = chooseFile(kind)) {
      FileName = std::move(*chosen);
    }
  }
};

/// Makes the file dialog of a window.
using CommonDialogMaker = std::function<std::unique_ptr<CommonDialog>()>;

}  // namespace tarnvex::platform
