#pragma once

#include <functional>
#include <string>
#include <vector>

#include "memory/transfer.h"
#include "platform/controls.h"
#include "platform/non_copyable.h"
#include "platform/notifier.h"
#include "platform/window.h"

namespace tarnvex::memory {

/// A dialog in which the user chooses banks and starts their transfer. The window layer creates it,
/// shows its window and closes the window on `closed`. It may only be destroyed once no function of
/// the core is on the stack. The window's own close button does the same as `Command2`
/// (`Command2.userClick()`).
///
/// A transfer can't be stopped: all controls are disabled until `closed`. If the program ends
/// during the transfer, everything stays as it is and `closed` isn't notified.
class BankDialog : private platform::NonCopyable {
 public:
  /// Returns the main window of the connected radio.
  using MainWindow = std::function<TransferWindow()>;

  virtual ~BankDialog() = default;

  platform::Window window;
  platform::Label Label1;
  /// The ten banks. Any number of them can be selected. The index is the bank.
  platform::ListBox List1{"List1"};
  platform::Button Command1;
  platform::Button Command2{"Command2", "Cancel"};
  platform::Button Command3{"Command3", "Select All"};
  Progress progress;
  /// The check box below the list, if the dialog has one.
  [[nodiscard]] virtual platform::CheckBox* option() { return nullptr; }

  /// The transfer has finished, or the dialog was cancelled.
  platform::Notifier<> closed;

 protected:
  /// How a transfer has ended.
  enum class Outcome {
    Done,
    Aborted,  ///< by the user: the dialog closes before the radio is released
    Ended,    ///< with the program
  };
  /// The texts in which the dialogs differ.
  struct Words {
    std::string name;
    std::string caption;
    std::string label;
    std::string action;
    /// Shown on the panel during the transfer.
    std::string status;
  };

  /// `banks` are the list's entries; `stepsPerBank` is how far `progress` advances for each bank.
  BankDialog(Words words, const std::vector<std::string>& banks, int stepsPerBank,
             MainWindow mainWindow, const TransferOutside& outside);

  /// Runs first, while the poll is still running.
  virtual void prepareRadio(const TransferWindow& /*main*/) {}
  /// Transfers the selected banks.
  virtual Outcome transferBanks(Transfer& transfer) = 0;
  /// Runs after the banks, before the poll starts again.
  virtual void releaseRadio() {}

  [[nodiscard]] int selectedBanks() const;

  static constexpr int kBanks = 10;
  TransferOutside outside_;

 private:
  void transfer();
  void disableControls();

  std::string status_;
  int stepsPerBank_;
  MainWindow mainWindow_;
};

}  // namespace tarnvex::memory
