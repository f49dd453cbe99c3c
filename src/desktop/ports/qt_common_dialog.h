#pragma once

#include "desktop/ports/plan_file_dialog.h"
#include "platform/common_dialog.h"
#include "platform/event_gate.h"

namespace tarnvex::desktop {

/// The file dialog, over the window in use. The core stays in the call and yields until the dialog
/// is closed.
class QtCommonDialog : public platform::CommonDialog {
 public:
  explicit QtCommonDialog(platform::EventGate& gate) : gate_(gate) {}

 protected:
  std::optional<std::string> chooseFile(platform::FileDialogKind kind) override;

 private:
  void prepare(PlanFileDialog& dialog) const;

  platform::EventGate& gate_;
};

/// Creates the file dialogs.
class QtCommonDialogs : public platform::CommonDialogs {
 public:
  explicit QtCommonDialogs(platform::EventGate& gate) : gate_(gate) {}
  std::unique_ptr<platform::CommonDialog> create() override {
    return std::make_unique<QtCommonDialog>(gate_);
  }

 private:
  platform::EventGate& gate_;
};

}  // namespace tarnvex::desktop
