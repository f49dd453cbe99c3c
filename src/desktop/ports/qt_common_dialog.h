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
  void begin(PlanFileDialog& dialog, const QString& current) const;

  platform::EventGate& gate_;
};

}  // namespace tarnvex::desktop
