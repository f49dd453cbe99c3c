#pragma once

#include <vector>

#include "monitor/reception_joiner.h"
#include "monitor/reception_store.h"
#include "platform/clock.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/settings_store.h"
#include "platform/shared_state.h"

namespace tarnvex::monitor {

/// What the log works with. All of it outlives the log.
struct ReceptionLogOutside {
  ReceptionStore& store;
  platform::SharedState& state;
  platform::SettingsStore& settings;
  platform::Dialogs& dialogs;
  const platform::Clock& clock;
};

/// The log of receptions. It joins what the poll hears into receptions and passes each one to the
/// store: when it ends, and every `kWriteEvery` milliseconds while it lasts. The program has one
/// log, which outlives the main windows.
class ReceptionLog : public ReceptionListener {
 public:
  static constexpr std::int64_t kWriteEvery = 10'000;

  /// Deletes from the store what is older than the time set in `cboKeepFor`.
  explicit ReceptionLog(ReceptionLogOutside outside);

  void tick(const Heard* heard) override;
  void recordingBegins() override;
  void recordingEnds(const std::string& file) override;
  /// Ends the open reception. Called when the main window closes.
  void stop();
  /// Deletes everything that was written. The open reception goes on.
  void clear() { outside_.store.clear(); }

  /// "Keep a log of receptions". While it isn't ticked, nothing is logged; the store keeps what it
  /// has.
  platform::CheckBox chkKeep{"chkKeep", "Keep a log of receptions", true};
  /// "Keep for". Old receptions are only deleted when the program starts, so a shorter time takes
  /// effect then.
  platform::ComboBox cboKeepFor{"cboKeepFor", {"30 days", "1 year", "Always"}};
  /// Notices when the poll has stopped. Runs from the program's start to its end.
  platform::Timer Timer1{1000};

  [[nodiscard]] ReceptionStore& store() { return outside_.store; }

 private:
  /// A reception that has ended while a recording goes on. It gets the file's name when the
  /// recording ends.
  struct Waiting {
    int number;
    Reception reception;
  };

  void loadSettings();
  void storeSettings();
  void thin();
  void finish(std::optional<Reception> ended);

  ReceptionLogOutside outside_;
  ReceptionJoiner joiner_;
  /// The number of the open reception, and when it was last written.
  int number_ = 0;
  std::int64_t written_ = 0;
  bool recording_ = false;
  std::vector<Waiting> waiting_;
};

}  // namespace tarnvex::monitor
