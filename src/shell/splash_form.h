#pragma once

#include <functional>
#include <memory>

#include "shell/services.h"

namespace tarnvex::shell {

/// The splash window. It stands for a second, makes the first contact with the radio and tells
/// which main window fits. There is no third outcome: no answer, or none that can be read, counts
/// as a BC245XLT, and the poll of the main window then mends a wrong choice or reports the silence.
class Form1 {
 public:
  /// `identified` is called once, with `ModelKey` set and the port closed again.
  Form1(const Services& services, std::function<void()> identified);

  platform::Timer Timer1{1000};

 private:
  void identify();
  void takeBc895();
  void takeBc245(const std::string& reply);

  Services services_;
  std::function<void()> identified_;
  /// Stays on its initial 9600 baud whatever rate is stored: the first contact is always tried at
  /// that rate.
  std::unique_ptr<platform::SerialPort> MSComm1_;
};

}  // namespace tarnvex::shell
