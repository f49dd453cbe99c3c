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

/// One record of an APF file, which holds a list of frequencies for exchange with other programs. A
/// record has seven fields, each in double quotes. The enumerators index `fields`.
struct ApfRecord {
  enum Field : std::size_t {
    Blank,      ///< a single blank
    Channel,    ///< channel number
    Frequency,  ///< MHz
    Mode,       ///< "am " (with the blank) or "nfm"
    Delay,      ///< "d" or " "; anything but one blank means on
    Lockout,    ///< "l" or " "; anything but one blank means on
    AlphaTag,
    kFields
  };
  std::array<std::string, kFields> fields;

  [[nodiscard]] const std::string& at(Field field) const { return fields[field]; }
  /// The record as the dialogs show it, such as "118.1000 Tower".
  [[nodiscard]] std::string listed() const;
};

/// What the two dialogs use. All of it must outlive them.
struct ApfPorts {
  platform::SequentialFiles& files;
  /// The form's own file dialog.
  platform::CommonDialog& CommonDialog1;
  platform::Dialogs& dialogs;
  platform::SharedState& state;
  /// Returns `MSFlexGrid1` of the connected radio's main window. Called for each use.
  std::function<platform::Table&()> MSFlexGrid1;
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

  ApfPorts ports_;

 private:
  /// Whether the number box takes the key. Beeps if not.
  bool passes(char key);
};

/// "Import APF File": lists the records of a file and writes the selected ones into the plan, row
/// by row from the start channel, whatever channel numbers they have. Deliberate: records that
/// would go beyond row 300 are dropped without a message.
class Form7 : public ApfForm {
 public:
  explicit Form7(ApfPorts ports);
  /// Asks for the file at once. A bad file gives a short or empty list.
  void load() override;

 private:
  platform::Failure list();
  platform::Failure listRecords();
  void importNow();
  void finish(const platform::Failure& failure);
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
