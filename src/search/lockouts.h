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
/// whichever fits its mode. Every entry is ticked at first; Done unlocks those that the user has
/// unticked.
///
/// If part of the list couldn't be read, the rest is shown and Done sends nothing.
///
/// The window isn't modal and the poll goes on, so the mode may change while it is open; Done uses
/// the mode at that moment. The main form shows the window, calls `load` and closes the window on
/// `closed`. If it is already open, it only comes to the front.
class frmLockouts : private platform::NonCopyable {
 public:
  /// `mode` is the panel's label. All three arguments outlive the form.
  frmLockouts(const link::RadioModel& model, const platform::Label& mode, link::ScannerLink& link);
  ~frmLockouts() = default;

  /// Reads the list from the radio.
  void load();
  /// The user closed the window with its own close button. Nothing is sent to the radio.
  void userClose() { closed.notify(); }

  platform::Window window{"frmLockouts", "Search Skip Memory"};
  /// Each line has a box to tick: a ticked line is `selected`.
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
