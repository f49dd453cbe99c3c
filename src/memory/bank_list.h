#pragma once

#include <functional>
#include <string>
#include <vector>

#include "memory/transfer_window.h"
#include "platform/controls.h"
#include "platform/non_copyable.h"
#include "platform/notifier.h"
#include "platform/window.h"

namespace tarnvex::memory {

/// How far a transfer has come, for a progress bar. A total of 0: it hasn't begun.
class Progress {
 public:
  [[nodiscard]] int done() const { return done_; }
  [[nodiscard]] int total() const { return total_; }
  void start(int total);
  void advance(int steps = 1);
  /// There is nothing to show any more.
  void clear() { start(0); }

  platform::Notifier<> changed;

 private:
  int done_ = 0;
  int total_ = 0;
};

/// A dialog that takes a choice of banks and does something long with them: its controls, "Select
/// All" and "Cancel". The window layer makes it, shows its window and closes the window on
/// `closed`; it may be destroyed once no function of the core is on the stack any more. The
/// window's own close button does what `Command2` does (`Command2.userClick()`).
///
/// There is no way back once the work has begun: all controls are disabled until `closed`.
class BankDialog : private platform::NonCopyable {
 public:
  virtual ~BankDialog() = default;

  /// The form's own name.
  const std::string name;
  platform::Window window;
  platform::Label Label1;
  /// The ten banks, of which any number can be selected; the index is the bank.
  platform::ListBox List1;
  platform::Button Command1;
  platform::Button Command2{"Cancel"};
  platform::Button Command3{"Select All"};
  Progress progress;
  /// A box below the list, for a dialog that has one.
  [[nodiscard]] virtual platform::CheckBox* option() { return nullptr; }

  /// The work is done, or the dialog was cancelled.
  platform::Notifier<> closed;

 protected:
  struct Words {
    std::string name;
    std::string caption;
    std::string label;
    std::string action;
    /// Shown on the panel all the while.
    std::string status;
  };

  BankDialog(const Words& words, const std::vector<std::string>& banks);

  void disableControls();
  [[nodiscard]] int selectedBanks() const;
  static constexpr int kBanks = 10;
};

/// A transfer of the channels of whole banks between plan and radio, channel by channel in their
/// order. The poll stands still and the panel counts the channels. Replies aren't verified: a radio
/// that falls silent is reported once by the link, and the transfer then runs out on a closed port.
///
/// If the program ends in the middle the transfer leaves all as it is, and doesn't tell `closed`.
class ChannelTransfer : public BankDialog {
 public:
  /// The main window of the radio that is connected then.
  using MainWindow = std::function<TransferWindow()>;

 protected:
  ChannelTransfer(const Words& words, MainWindow mainWindow, TransferOutside outside);

  /// Runs first, with the poll still going.
  virtual void prepareRadio(const TransferWindow& /*main*/) {}
  /// Every bank's turn, before its channels.
  virtual void enterBank(const TransferWindow& main, bool selected) = 0;
  /// Moves a channel (1 to 300) of a selected bank (0 to 9). Calls `showChannel` once.
  virtual void transferChannel(const TransferWindow& main, int bank, int channel) = 0;
  /// Runs behind the last channel, before the poll goes on.
  virtual void releaseRadio() {}

  /// Counts on the panel and lets others run. False if the program has ended.
  bool showChannel(const TransferWindow& main, int channel);
  /// Others have run: keeps the poll from coming between the transfer's commands, whatever they
  /// did. False if the program has ended.
  bool holdPoll(const TransferWindow& main);

  TransferOutside outside_;

 private:
  void transfer();
  bool transferBanks(const TransferWindow& main);
  bool letOthersRun(const TransferWindow& main);

  MainWindow mainWindow_;
  std::string status_;
};

}  // namespace tarnvex::memory
