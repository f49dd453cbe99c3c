#pragma once

#include "platform/controls.h"
#include "platform/notifier.h"
#include "platform/shared_state.h"
#include "platform/version.h"
#include "platform/window.h"

namespace tarnvex::shell {

/// The about box: the program's version, and the radio's name, serial number and firmware version.
class frmAbout {
 public:
  explicit frmAbout(const platform::SharedState& state)
      : lblScanner("lblScanner", "Scanner: " + state.ScannerName),
        lblSerial("lblSerial", "Serial No. " + state.SerialNumberText),
        lblFirmware("lblFirmware", "Firmware Ver. " + state.FirmwareText) {
    Command1.onClick = [this] { closed.notify(); };
  }

  platform::Window window{"frmAbout", "About Tarnvex"};
  platform::Label lblScanner;
  platform::Label lblSerial;
  platform::Label lblFirmware;
  platform::Label Label1{"Label1",
                         "Computer Control Software for Uniden Bearcat Trunking Scanners"};
  platform::Label Label2{"Label2", std::string("Version: ") + platform::version()};
  platform::Button Command1{"Command1", "OK"};

  platform::Notifier<> closed;
};

}  // namespace tarnvex::shell
