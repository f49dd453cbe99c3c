#include "monitor/reception_log.h"

#include <array>

#include "platform/convert.h"

namespace tarnvex::monitor {
namespace {

constexpr const char* kLogSection = "ReceptionLog";
constexpr const char* kKeep = "Keep";
constexpr const char* kKeepDays = "KeepDays";
/// How many days the lines of `cboKeepFor` keep. 0 means for ever.
constexpr std::array kDays = {30, 365, 0};
constexpr int kDefaultDays = 365;
constexpr std::int64_t kDay = 24LL * 60 * 60 * 1000;

}  // namespace

ReceptionLog::ReceptionLog(ReceptionLogOutside outside) : outside_(outside) {
  loadSettings();
  storeSettings();
  outside_.store.onTrouble = [&dialogs = outside_.dialogs](const std::string& words) {
    dialogs.messageBox(words, "Reception Log", platform::kWarning);
  };
  Timer1.onTick = [this] { finish(joiner_.endIfStill(outside_.clock.milliseconds())); };
  Timer1.setEnabled(true);
  thin();
}

/// From now on, as the user changes them.
void ReceptionLog::storeSettings() {
  chkKeep.onClick = [this] {
    outside_.settings.saveSetting(kLogSection, kKeep, chkKeep.value() ? "1" : "0");
    stop();
  };
  cboKeepFor.onClick = [this] {
    const auto line = static_cast<std::size_t>(cboKeepFor.listIndex());
    outside_.settings.saveSetting(kLogSection, kKeepDays, std::to_string(kDays.at(line)));
  };
}

void ReceptionLog::loadSettings() {
  chkKeep.setValue(outside_.settings.getSetting(kLogSection, kKeep, "1") != "0");
  const auto days = platform::toInteger(
      outside_.settings.getSetting(kLogSection, kKeepDays, std::to_string(kDefaultDays)));
  for (std::size_t line = 0; line < kDays.size(); ++line) {
    if (kDays.at(line) == days.value_or(kDefaultDays)) {
      cboKeepFor.setListIndex(static_cast<int>(line));
    }
  }
}

/// Deletes nothing if the settings have a number of days that none of the lines has.
void ReceptionLog::thin() {
  const int line = cboKeepFor.listIndex();
  if (const int days = line < 0 ? 0 : kDays.at(static_cast<std::size_t>(line)); days > 0) {
    outside_.store.thin(outside_.clock.milliseconds() - days * kDay);
  }
}

void ReceptionLog::tick(const Heard* heard) {
  if (!chkKeep.value()) {
    return;
  }
  const std::int64_t now = outside_.clock.milliseconds();
  finish(joiner_.tick(heard, now, outside_.state.ModelKey + "XLT"));
  const auto& open = joiner_.open();
  if (open && open->started == now) {
    written_ = now;
  }
  if (open && now - written_ >= kWriteEvery) {
    outside_.store.write(number_, *open, false);
    written_ = now;
  }
}

void ReceptionLog::recordingBegins() {
  recording_ = true;
}

void ReceptionLog::recordingEnds(const std::string& file) {
  recording_ = false;
  for (Waiting& waiting : waiting_) {
    waiting.reception.recording = file;
    outside_.store.write(waiting.number, waiting.reception, true);
  }
  waiting_.clear();
  joiner_.record(file);
}

void ReceptionLog::stop() {
  finish(joiner_.end());
  recordingEnds({});
}

void ReceptionLog::finish(std::optional<Reception> ended) {
  if (!ended) {
    return;
  }
  const bool final = !recording_ || !ended->recording.empty();
  outside_.store.write(number_, *ended, final);
  if (!final) {
    waiting_.push_back({number_, std::move(*ended)});
  }
  ++number_;
}

}  // namespace tarnvex::monitor
