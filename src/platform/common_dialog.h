#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// Which of the system's file dialogs.
enum class FileDialogKind { Open, Save };

/// The file dialog of a window. Each window that has one keeps its own, since the chosen name is
/// remembered from one showing to the next.
///
/// Names of files are bytes, as the file system has them; whoever shows one decodes it as the
/// system does.
class CommonDialog : private NonCopyable {
 public:
  virtual ~CommonDialog() = default;

  /// Shows the dialog, preset with `FileName`, and puts the chosen path there. A cancelled dialog
  /// leaves `FileName` as it is, so the caller can't tell Cancel from OK unless it is blank.
  void ShowOpen() { show(FileDialogKind::Open); }
  void ShowSave() { show(FileDialogKind::Save); }

  /// Full path of the file chosen last, or preset by the program.
  std::string FileName;
  /// Pairs of description and pattern, as in "APF Files (*.apf)|*.apf".
  std::string Filter;
  /// Blank for the system's own title.
  std::string DialogTitle;

 protected:
  /// Shows the system's dialog. Nothing if the user cancelled. The empty text if the program has
  /// ended or the dialog's window is gone: `FileName` is blank then, which stops every command,
  /// also one that would ask again.
  virtual std::optional<std::string> chooseFile(FileDialogKind kind) = 0;

 private:
  void show(FileDialogKind kind) {
    if (auto chosen = chooseFile(kind)) {
      FileName = std::move(*chosen);
    }
  }
};

/// Makes the file dialogs of the windows.
class CommonDialogs : private NonCopyable {
 public:
  virtual ~CommonDialogs() = default;

  virtual std::unique_ptr<CommonDialog> create() = 0;
};

}  // namespace tarnvex::platform
