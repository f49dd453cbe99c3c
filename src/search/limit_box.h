#pragma once

#include <functional>
#include <string_view>

#include "link/scanner_link.h"
#include "platform/controls.h"

namespace tarnvex::search {

/// A box of the search range, lower or upper limit in MHz, that the user edits key by key; it comes
/// into focus with its whole text selected. The poll
/// refreshes it from the radio only while nobody types in it; Enter sends the limit and gives the
/// box back to the poll.
class LimitBox {
 public:
  struct Parts {
    platform::TextBox& box;
    /// The poll leaves the box alone while this is set.
    bool& editing;
    /// The command that sets the limit.
    std::string_view command;
    /// Receives the focus after Enter.
    platform::Control& next;
  };

  LimitBox(Parts parts, link::ScannerLink& link, std::function<void()> beep);

  /// Limits that the radios take, in MHz, both included.
  static constexpr double kLowest = 29.0;
  static constexpr double kHighest = 956.0;

 private:
  bool key(char key);
  void enter();

  Parts parts_;
  link::ScannerLink& link_;
  std::function<void()> beep_;
};

}  // namespace tarnvex::search
