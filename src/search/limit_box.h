#pragma once

#include <string>
#include <string_view>

#include "link/scanner_link.h"
#include "platform/controls.h"
#include "platform/dialogs.h"

namespace tarnvex::search {

/// The box for the lower or upper search limit, in MHz. When the user enters it, its whole text is
/// selected. The poll refreshes it from the radio unless the user is editing it. Enter sends the
/// limit and ends the editing.
class LimitBox : public platform::TextBox {
 public:
  /// `editing` is true while the user edits, `command` sets the limit on the radio, and `next` gets
  /// the focus after Enter.
  LimitBox(std::string name, bool& editing, std::string_view command, platform::Control& next,
           link::ScannerLink& link, platform::Dialogs& dialogs);

  [[nodiscard]] bool editing() const { return editing_; }
  /// Sends the limit in the box if it is a number.
  void send();

  /// The lowest and the highest limit that the radios accept, in MHz.
  static constexpr double kLowest = 29.0;
  static constexpr double kHighest = 956.0;

 private:
  bool key(char key);
  void enter();

  bool& editing_;
  std::string_view command_;
  platform::Control& next_;
  link::ScannerLink& link_;
  platform::Dialogs& dialogs_;
};

}  // namespace tarnvex::search
