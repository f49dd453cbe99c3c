#pragma once

#include <span>
#include <string_view>

#include "link/radio_model.h"
#include "link/scanner_link.h"
#include "platform/controls.h"
#include "platform/non_copyable.h"
#include "platform/notifier.h"
#include "platform/window.h"

namespace tarnvex::search {

/// "Search Skip Memory": the radio's list of skipped search frequencies, or of locked-out IDs,
/// whichever fits its mode. Every entry is ticked; unticked ones are let in again at Done.
///
/// A list that couldn't be read whole is shown as far as it was read, and Done then sends nothing.
///
/// The window isn't modal and the poll goes on behind it, so the mode may change while it is open;
/// Done uses the mode at that moment. Whoever shows the window runs `load` and closes it on
/// `closed`; asking for it while it is open only brings it to the front.
class frmLockouts : private platform::NonCopyable {
 public:
  /// `mode` is the panel's label. It, the link and the model outlive the form.
  frmLockouts(const link::RadioModel& model, const platform::Label& mode, link::ScannerLink& link);
  ~frmLockouts() = default;

  /// Reads the list from the radio.
  void load();
  /// The user closes the window by its own button: the radio isn't told anything.
  void userClose() { closed.notify(); }

  platform::Window window{"frmLockouts", "Search Skip Memory"};
  /// Shown with a box to tick at each line: ticked is `selected`.
  platform::ListBox List1{"List1"};
  platform::Label Label1{
      "Label1",
      "To restore a locked out frequency or talkgroup, uncheck it in the list above, then click "
      "Done."};
  platform::Button Command1{"Command1", "Done"};
  platform::Button Command2{"Command2", "Unlock All"};

  platform::Notifier<> closed;

 private:
  void done();
  void restoreFrequencies();
  void restoreIds();
  void unlockAll();
  void setEnabled(bool enabled);
  [[nodiscard]] std::string_view returnKey() const;
  [[nodiscard]] bool modeIsIn(std::span<const std::string_view> modes) const;

  const link::RadioModel& model_;
  const platform::Label& mode_;
  link::ScannerLink& link_;
  bool whole_ = false;
};

}  // namespace tarnvex::search
