#pragma once

#include <memory>
#include <vector>

#include "shell/bc245_form.h"
#include "shell/bc895_form.h"
#include "shell/splash_form.h"
#include "shell/window_layer.h"

namespace tarnvex::shell {

/// The program from its splash to its end: which window is open, and the switch of the main windows
/// when the user connects the other radio. `desktop::Program` has one and calls `start`.
class Application {
 public:
  Application(const Services& services, WindowLayer& windows);

  /// Shows the splash. Its timer starts everything else.
  void start();

  /// The main window in use, if there is one.
  [[nodiscard]] MainForm* mainForm() const { return main_.get(); }

 private:
  void openMain();
  void switchScanner();
  void end();
  /// Keeps the form of a closed window until the core's stack has unwound.
  void retireMain();

  Services services_;
  WindowLayer& windows_;
  std::unique_ptr<Form1> splash_;
  std::unique_ptr<MainForm> main_;
  std::vector<std::unique_ptr<MainForm>> retired_;
};

}  // namespace tarnvex::shell
