#pragma once

#include <array>
#include <functional>
#include <string>

#include "platform/common_dialog.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/non_copyable.h"
#include "platform/notifier.h"
#include "platform/sequential_files.h"
#include "platform/shared_state.h"
#include "platform/table.h"
#include "platform/window.h"

namespace tarnvex::memory {

/// One record of an APF file, a list of frequencies as other programs keep it: seven fields, each
/// written in double quotes. The members index `fields`.
struct ApfRecord {
  enum Field : std::size_t {
    Blank,      ///< a single blank
    Channel,    ///< channel number
    Frequency,  ///< MHz
    Mode,       ///< "am " (with the blank) or "nfm"
    Delay,      ///< "d" or " "; on unless it is one blank
    Lockout,    ///< "l" or " "; on unless it is one blank
    AlphaTag,
    kFields
  };
  std::array<std::string, kFields> fields;

  [[nodiscard]] const std::string& at(Field field) const { return fields[field]; }
  /// The record as the dialogs list it, "118.1000 Tower".
  [[nodiscard]] std::string listed() const;
};

/// What the two dialogs need. All of it must outlive them.
struct ApfPorts {
  platform::SequentialFiles& files;
  /// A file dialog of the form's own, `CommonDialog1`.
  platform::CommonDialog& CommonDialog1;
  platform::Dialogs& dialogs;
  platform::SharedState& state;
  /// `MSFlexGrid1` of the connected radio's main window, asked for at each use.
  std::function<platform::Table&()> MSFlexGrid1;
};

/// What import and export have in common: the controls of the dialog, the number box that takes
/// digits alone, "Select All" and "Cancel". The window layer makes the form, shows its window, runs
/// `load` and closes the window on `closed`; the form may be destroyed only after that call has
/// returned.
class ApfForm : private platform::NonCopyable {
 public:
  virtual ~ApfForm() = default;

  /// Run once, when the window opens.
  virtual void load() = 0;

  platform::Window window;
  /// Several entries can be selected.
  platform::ListBox List1{"List1"};
  platform::Label Label1;
  platform::TextBox Text1{"Text1"};
  platform::Button Command1{"Command1", "Open APF File"};
  platform::Button Command2{"Command2", "Select All"};
  platform::Button Command3;
  platform::Button Command4{"Command4", "Cancel"};
  platform::CommonDialog& CommonDialog1;

  /// The form has done its work or was cancelled.
  platform::Notifier<> closed;

 protected:
  static constexpr int kFile = 1;

  ApfForm(ApfPorts ports, std::string name, std::string caption, std::string label,
          std::string action);

  ApfPorts ports_;
};

/// "Import APF File": lists the records of a file, and writes the selected ones into the plan, one
/// row after the other from the start channel on, whatever their own channel numbers. What doesn't
/// fit below row 300 is dropped without a word.
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

/// "Export APF File": lists the plan's channels, and appends the selected ones to a file. No
/// failure is reported.
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
