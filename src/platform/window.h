#pragma once

#include <string>

#include "platform/non_copyable.h"
#include "platform/notifier.h"

namespace tarnvex::platform {

/// The core's model of a window: name, such as "Form4", caption and state.
class Window : private NonCopyable {
 public:
  Window(std::string name, std::string caption)
      : name_(std::move(name)), caption_(std::move(caption)) {}

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { changed.change(caption_, std::move(caption)); }
  [[nodiscard]] bool minimised() const { return minimised_; }
  /// Called by the window layer.
  void setMinimised(bool minimised) { minimised_ = minimised; }

  Notifier<> changed;

 private:
  std::string name_;
  std::string caption_;
  bool minimised_ = false;
};

}  // namespace tarnvex::platform
