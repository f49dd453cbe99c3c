#pragma once

#include <string>

#include "platform/notifier.h"

namespace tarnvex::platform {

/// A window of the program as the core sees it, with its name in the program's own language, such
/// as "Form4".
class Window {
 public:
  Window(std::string name, std::string caption)
      : name_(std::move(name)), caption_(std::move(caption)) {}

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) {
    if (caption_ != caption) {
      caption_ = std::move(caption);
      changed.notify();
    }
  }
  [[nodiscard]] bool minimised() const { return minimised_; }
  /// Told by the window layer.
  void setMinimised(bool minimised) { minimised_ = minimised; }

  Notifier<> changed;

 private:
  std::string name_;
  std::string caption_;
  bool minimised_ = false;
};

}  // namespace tarnvex::platform
