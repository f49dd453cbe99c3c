#pragma once

#include "link/insist.h"
#include "link/scanner_commands.h"
#include "link/scanner_link.h"
#include "platform/controls.h"

namespace tarnvex::monitor {

/// A check box that mirrors a switch of the radio. Each change is sent to the radio at once.
class SwitchBox : public platform::CheckBox {
 public:
  SwitchBox(std::string name, std::string caption, const link::Switch& subject,
            link::ScannerLink& link)
      : CheckBox(std::move(name), std::move(caption)), subject_(subject), link_(link) {
    onClick = [this] { write(); };
  }

  void write() { link_.SendCommand(subject_.form(value())); }
  /// Asks the radio, twice if it must.
  [[nodiscard]] bool isOn() const { return link::insistOn(link_, subject_); }

 private:
  const link::Switch& subject_;
  link::ScannerLink& link_;
};

}  // namespace tarnvex::monitor
