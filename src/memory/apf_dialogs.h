#pragma once

#include <string>

#include "memory/apf_file.h"
#include "memory/channel_memory.h"
#include "platform/common_dialog.h"
#include "platform/controls.h"
#include "platform/non_copyable.h"
#include "platform/notifier.h"
#include "platform/sequential_files.h"
#include "platform/window.h"

namespace tarnvex::memory {

/// What the two dialogs use. All of it must outlive them.
struct ApfPorts {
  platform::SequentialFiles& files;
  /// The form's own file dialog.
  platform::CommonDialog& CommonDialog1;
  /// The plan of the main window.
  ChannelMemory& memory;
};

/// Base of import and export: the dialog's controls, the number box that accepts only digits,
/// "Select All" and "Cancel". The window layer creates the form, shows its window, calls `load` and
/// closes the window on `closed`. The form must not be destroyed before that notification has
/// returned.
class ApfForm : private platform::NonCopyable {
 public:
  virtual ~ApfForm() = default;

  /// Called once, when the window opens.
  virtual void load() = 0;

  platform::Window window;
  /// A list in which any number of entries can be selected.
  platform::ListBox List1{"List1"};
  platform::Label Label1;
  platform::TextBox Text1{"Text1"};
  platform::Button Command1{"Command1", "Open APF File"};
  platform::Button Command2{"Command2", "Select All"};
  platform::Button Command3;
  platform::Button Command4{"Command4", "Cancel"};
  platform::CommonDialog& CommonDialog1;

  /// The work is done, or the user cancelled.
  platform::Notifier<> closed;

 protected:
  static constexpr int kFile = 1;

  ApfForm(ApfPorts ports, std::string name, std::string caption, std::string label,
          std::string action);

  [[nodiscard]] platform::Dialogs& dialogs() { return ports_.memory.dialogs(); }

  ApfPorts ports_;
};

/// "Import APF File": lists the records of a file and writes the selected ones into the plan, row
/// by row from the start channel, whatever channel numbers they have. The import is one step of
/// undo. Deliberate: records that would go beyond row 300 are dropped without a message.
class Form7 : public ApfForm {
 public:
  explicit Form7(ApfPorts ports);
  /// Asks for the file at once. A bad file gives a short or empty list.
  void load() override;

 private:
  platform::Failure list();
  platform::Failure listRecords();
  void importNow();
  platform::Failure importSelected(int channel);
  void report(const std::string& description);
};

/// "Export APF File": lists the plan's channels and appends the selected ones to a file.
/// Deliberate: failures aren't reported. The dialog closes as after a success.
class Form8 : public ApfForm {
 public:
  explicit Form8(ApfPorts ports);
  void load() override;

 private:
  void openTarget();
  std::string listTarget();
  void exportNow();
};

}  // namespace tarnvex::memory
