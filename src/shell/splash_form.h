#pragma once

#include <functional>
#include <memory>

#include "shell/services.h"

namespace tarnvex::shell {

/// The splash window. After a second it makes the first contact with the radio and chooses the main
/// window. Deliberate: no answer, or one that can't be read, counts as a BC245XLT. The poll of the
/// main window then corrects a wrong choice or reports the silence.
class Form1 : private platform::NonCopyable {
 public:
  /// `identified` is called once, after `ModelKey` has been set and the port closed.
  Form1(const Services& services, std::function<void()> identified);

  platform::Timer Timer1{1000};

 private:
  void identify();

  Services services_;
  std::function<void()> identified_;
  /// Deliberate: stays at its initial 9600 baud, whatever rate is stored. A radio at another rate
  /// isn't recognised at the first contact.
  std::unique_ptr<platform::SerialPort> MSComm1_;
};

}  // namespace tarnvex::shell
