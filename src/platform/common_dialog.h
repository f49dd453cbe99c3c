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
  /// The suffix of the name that is offered while `FileName` is blank, without the dot. Blank if no
  /// name is offered.
  std::string DefaultExt;
  /// The folder to begin in while `FileName` is blank. Blank for the system's choice.
  std::string InitDir;
  /// The caption of the button that accepts the file. Blank for the system's own.
  std::string AcceptCaption;
  /// What Cancel does while there is a `FileName` to go on with, such as "Save to". It becomes the
  /// button's caption, with the file's name after it. Blank for the system's own.
  std::string KeepCaption;
  /// The file that the user may choose again without a question.
  std::string OwnFile;
  /// Whether the dialog itself asks before it gives an existing file other than `OwnFile`, also
  /// where Cancel goes on with one.
  bool AsksBeforeReplacing = false;

  /// Called when its window has gone. It then shows nothing, and `FileName` stays blank even if a
  /// dialog is still open.
  void withdraw() { withdrawn_ = true; }

 protected:
  /// Shows the system's dialog. Returns nothing if the user cancelled, and an empty name if the
  /// program has ended or the dialog's window is gone. `FileName` is then blank, which stops every
  /// command, even one that would ask again.
  virtual std::optional<std::string> chooseFile(FileDialogKind kind) = 0;

 private:
  void show(FileDialogKind kind) {
    auto chosen = withdrawn_ ? std::nullopt : chooseFile(kind);
    if (withdrawn_) {
      FileName.clear();
    } else if (chosen) {
      FileName = std::move(*chosen);
    }
  }

  bool withdrawn_ = false;
};

/// Makes the file dialog of a window.
using CommonDialogMaker = std::function<std::unique_ptr<CommonDialog>()>;

}  // namespace tarnvex::platform
