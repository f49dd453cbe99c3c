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

/// What `Form3` works with. All of it outlives the form.
struct SystemTypeOutside {
  /// The channel number on the BC245XLT's panel: the channel that the upload has come to.
  const platform::Label& Channel;
  const platform::Table& MSFlexGrid1;
  platform::SharedState& state;
  link::ScannerLink& link;
  platform::EventGate& gate;
  platform::Dialogs& dialogs;
};

/// "Select Trunking System Type": asks for the system type of the trunked bank that the radio
/// stands in, and programs the bank with it. Only the upload to a BC245XLT shows it, modally, once
/// for a bank; it also makes the form and runs `load`.
///
/// The replies to what it sends aren't looked at: a type that the radio refuses goes unnoticed.
class Form3 : private platform::NonCopyable {
 public:
  explicit Form3(SystemTypeOutside outside);
  ~Form3() = default;

  /// Fills the form in and chooses the type that the radio has for the bank.
  void load();
  /// The user closes the window by its own button: the bank keeps the type that it has.
  void userClose() { closed.notify(); }

  platform::Window window{"Form3", "Select Trunking System Type"};
  platform::Label Label1{"Label1",
                         "Select the type of trunking system you are programming into this bank."};
  /// The channel being programmed.
  platform::Label Label2{"Label2"};
  platform::ComboBox Combo1;
  /// The controls of a type that is tuned; hidden for the others. `BFText` holds MHz.
  platform::Label BFLabel{"BFLabel", "Base Frequency:", false};
  platform::TextBox BFText{"BFText"};
  platform::Label OSLabel{"OSLabel", "Offset Step:", false};
  platform::ComboBox Combo2{"Combo2", {"0.0005 MHz", "0.0125 MHz"}};
  platform::Button Command1{"Command1", "Continue"};

  /// The form has done its work or was closed.
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
