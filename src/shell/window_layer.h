#pragma once

#include <string>

#include "platform/non_copyable.h"

namespace tarnvex::memory {
class ApfForm;
class BankDialog;
}  // namespace tarnvex::memory

namespace tarnvex::search {
class frmLockouts;
}  // namespace tarnvex::search

namespace tarnvex::trunking {
class Form3;
class Form5;
}  // namespace tarnvex::trunking

namespace tarnvex::shell {

class Form1;
class Form2;
class Form4;
class Form9;
class QuickView;
class frmAbout;
class frmReceptionLog;

/// How the manual opens: at its contents, or ready to search for a word.
enum class HelpView { Contents, Search };

/// The layer that draws the windows, as the core sees it. The application and the main windows call
/// it. A window is bound to its form from `open` to `close`, and the form outlives it.
class WindowLayer : private platform::NonCopyable {
 public:
  virtual ~WindowLayer() = default;

  virtual void openSplash(Form1& form) = 0;
  virtual void closeSplash() = 0;
  virtual void openMain(Form4& form) = 0;
  virtual void openMain(Form2& form) = 0;
  virtual void closeMain() = 0;
  /// Shows or hides the main window.
  virtual void showMain(bool shown) = 0;
  /// Opens the small window above all others. The layer calls the form's `load` once it knows the
  /// sizes.
  virtual void openQuickView(QuickView& form) = 0;
  virtual void openQuickView(Form9& form) = 0;
  virtual void closeQuickView() = 0;
  /// `Form6`: a notice with one label and no buttons, above all other windows.
  virtual void openNotice(const std::string& caption, const std::string& text) = 0;
  virtual void closeNotice() = 0;
  /// Open a dialog over the main window. A modal one blocks it.
  virtual void openDialog(memory::ApfForm& form, bool modal) = 0;
  virtual void openDialog(memory::BankDialog& form, bool modal) = 0;
  virtual void openDialog(search::frmLockouts& form, bool modal) = 0;
  virtual void openDialog(trunking::Form3& form, bool modal) = 0;
  virtual void openDialog(trunking::Form5& form, bool modal) = 0;
  virtual void openDialog(frmAbout& form, bool modal) = 0;
  virtual void openDialog(frmReceptionLog& form, bool modal) = 0;
  /// Closes the dialog of a form, or brings it to the front. Ignores a form that has no dialog.
  virtual void closeDialog(const void* form) = 0;
  virtual void raiseDialog(const void* form) = 0;
  /// Shows the program's manual, or a message if it is missing.
  virtual void showHelp(HelpView view) = 0;
  /// Keeps where the main window is, and how large.
  virtual void rememberPlaces() = 0;
  /// Closes all windows and leaves the event loop. Called when the program has ended.
  virtual void quit() = 0;
};

}  // namespace tarnvex::shell
