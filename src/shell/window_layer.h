#pragma once

#include <string>

namespace tarnvex::shell {

class Form1;
class Form2;
class Form4;

/// What the program asks of the layer that draws its windows. A window is bound to its form from
/// `open` to `close`; the form lives longer than that.
class WindowLayer {
 public:
  WindowLayer() = default;
  virtual ~WindowLayer() = default;
  WindowLayer(const WindowLayer&) = delete;
  WindowLayer& operator=(const WindowLayer&) = delete;
  WindowLayer(WindowLayer&&) = delete;
  WindowLayer& operator=(WindowLayer&&) = delete;

  virtual void openSplash(Form1& form) = 0;
  virtual void closeSplash() = 0;
  virtual void openMain(Form4& form) = 0;
  virtual void openMain(Form2& form) = 0;
  virtual void closeMain() = 0;
  /// `Form6`: a notice with one label and no buttons, over all else.
  virtual void openNotice(const std::string& caption, const std::string& text) = 0;
  virtual void closeNotice() = 0;
  /// The program has ended: close all windows and leave the event loop.
  virtual void quit() = 0;
};

}  // namespace tarnvex::shell
