#pragma once

#include <string>
#include <string_view>

#include "link/scanner_link.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/event_gate.h"
#include "platform/non_copyable.h"
#include "platform/notifier.h"
#include "platform/shared_state.h"
#include "platform/table.h"
#include "platform/window.h"

namespace tarnvex::trunking {

/// What `Form3` uses. All of it outlives the form.
struct SystemTypeOutside {
  /// The channel number on the panel: the channel that the upload has reached.
  const platform::Label& Channel;
  const platform::Table& MSFlexGrid1;
  platform::SharedState& state;
  link::ScannerLink& link;
  platform::EventGate& gate;
  platform::Dialogs& dialogs;
};

/// "Select Trunking System Type": asks for the system type of the trunked bank that the radio is
/// in, and sets it. Only an upload to a BC245XLT shows the form, modally and once per bank. The
/// code that creates the form calls `load`.
///
/// The radio's replies aren't checked, so nothing shows if it refuses a type.
class Form3 : private platform::NonCopyable {
 public:
  explicit Form3(SystemTypeOutside outside);
  ~Form3() = default;

  /// Fills in the form and chooses the bank's present type.
  void load();

  platform::Window window{"Form3", "Select Trunking System Type"};
  platform::Label Label1{"Label1",
                         "Select the type of trunking system you are programming into this bank."};
  /// The channel that is being programmed.
  platform::Label Label2{"Label2"};
  platform::ComboBox Combo1;
  /// For types with base frequency and offset, hidden for others. `BFText` is in MHz.
  platform::Label BFLabel{"BFLabel", "Base Frequency:", false};
  platform::TextBox BFText{"BFText"};
  platform::Label OSLabel{"OSLabel", "Offset Step:", false};
  platform::ComboBox Combo2{"Combo2", {"0.0005 MHz", "0.0125 MHz"}};
  platform::Button Command1{"Command1", "Continue"};

  /// The work is done.
  platform::Notifier<> closed;

 private:
  void describeChannel();
  void chooseType();
  void showTuning(bool shown);
  void proceed();
  [[nodiscard]] std::string typeCommand(std::string_view bank) const;

  SystemTypeOutside outside_;
};

}  // namespace tarnvex::trunking
