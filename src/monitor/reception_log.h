#pragma once

#include <string_view>
#include <vector>

#include "monitor/reception_joiner.h"
#include "monitor/reception_store.h"
#include "platform/clock.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/settings_store.h"
#include "platform/shared_state.h"

namespace tarnvex::monitor {

/// What the log works with. All of it outlives it.
struct ReceptionLogOutside {
  ReceptionStore& store;
  platform::SharedState& state;
  platform::SettingsStore& settings;
  platform::Dialogs& dialogs;
  const platform::Clock& clock;
};

/// The log of receptions: joins what the poll hears and hands it to the store, when a reception
/// ends and every `kWriteEvery` milliseconds while it lasts. One a program: it outlives the main
/// windows.
class ReceptionLog : public ReceptionListener {
 public:
  static constexpr std::int64_t kWriteEvery = 10'000;

  /// Drops from the store what is older than the user keeps.
  explicit ReceptionLog(ReceptionLogOutside outside);

  void tick(const Heard* heard) override;
  void recordingBegins() override;
  void recordingEnds(const std::string& file) override;
  /// Ends what is open: the main window goes.
  void stop();
  /// Drops everything that was written. What is open stays open.
  void clear() { outside_.store.clear(); }

  /// "Keep a log of receptions". Without it nothing is logged; what is in the store stays.
  platform::CheckBox chkKeep{"chkKeep", "Keep a log of receptions", true};
  /// "Keep for". A shorter time takes effect at the next start, like the passing of time.
  platform::ComboBox cboKeepFor{"cboKeepFor", {"30 days", "1 year", "Always"}};
  /// Looks for a poll that stands still. Driven from the program's start to its end.
  platform::Timer Timer1{1000};

  [[nodiscard]] ReceptionStore& store() { return outside_.store; }

 private:
  /// A reception that has ended while the recording goes on, which may be the recording's.
  struct Waiting {
    int number;
    Reception reception;
  };

  void loadSettings();
  void thin();
  void finish(std::optional<Reception> ended);

  ReceptionLogOutside outside_;
  ReceptionJoiner joiner_;
  /// Of the open reception.
  int number_ = 0;
  std::int64_t written_ = 0;
  bool recording_ = false;
  std::vector<Waiting> waiting_;
};

}  // namespace tarnvex::monitor
