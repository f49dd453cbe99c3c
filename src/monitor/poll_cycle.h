#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "link/scanner_commands.h"
#include "link/scanner_link.h"
#include "monitor/panel_state.h"
#include "monitor/recording.h"
#include "platform/clock.h"
#include "platform/event_gate.h"
#include "platform/non_copyable.h"
#include "platform/table.h"
#include "platform/window.h"

namespace tarnvex::monitor {

/// What a poll works with beside its panel. All of it outlives the poll.
struct PollOutside {
  link::ScannerLink& link;
  platform::EventGate& gate;
  platform::SharedState& state;
  const platform::Clock& clock;
  /// The other model has answered: exchanges the main windows. The tick ends behind it.
  std::function<void()> switchScanner;
  /// Full name of the frequency file in use, empty if there is none.
  std::function<std::string()> planName;
  /// Starts and stops the recording of receptions.
  Recording& recording;
};

/// Controls of the main window that a poll reads or writes, alike on both radios.
struct PollControls {
  platform::Window& window;
  platform::Table& MSFlexGrid1;
  platform::Table& MSFlexGrid2;
  platform::TextBox& LLimit;
  platform::TextBox& Ulimit;
  platform::CheckBox& Check6;
  platform::CheckBox& chkSkip;
  platform::ListBox& List1;
  platform::ListBox& List2;
};

/// Title of a main window: the program's name and the frequency file's.
std::string mainTitle(const std::string& planName);

inline constexpr std::string_view kScanning = "Scanning";
/// Stands on the main line of an ID search while no ID is active.
inline constexpr std::string_view kNoId = "- -   - - -";

/// What the polls of both radios have in common. A poll keeps the picture of its radio true by
/// asking: one tick asks a fixed opening set of questions, branches on the radio's mode and writes
/// the answers into the panel. The radio's mode is the state; the tick holds none, and the next
/// tick is the retry of this one. A reply that doesn't fit leaves its element as it was.
///
/// Elements that a mode doesn't name keep what an earlier mode left, so the panel depends on the
/// way as the radio's own does.
///
/// Called by the poll timer, through the event gate, which lets pending events run before each
/// tick. In the ID modes a tick stays inside, yielding, until the mode changes.
class PollCycle : private platform::NonCopyable {
 public:
 protected:
  PollCycle(PanelBase& front, PollControls controls, PollOutside outside);
  ~PollCycle() = default;

  std::string ask(std::string_view command) { return outside_.link.SendCommand(command); }
  bool asksOn(std::string_view command, std::string_view on) { return ask(command) == on; }
  platform::SharedState& state() { return outside_.state; }

  /// Exchanges the main windows for those of the model that has answered. Ends the tick.
  void handOver(const std::string& modelKey, const std::string& scannerName);
  /// Told once a tick whether the display shows a reception.
  void gateRecording(bool active);
  void askMode();
  void askLimits();
  /// Writes to the main line, unless the user is keying digits there.
  void showFrequency(std::string_view text);
  /// No channel or ID is active.
  void showNothingActive();
  /// Channel number, frequency, tag and flags of an active channel. `markBank`: its bank alone is
  /// marked.
  void showActiveChannel(const link::ChannelReply& channel, bool markBank);
  /// Shows the tag of a frequency, or leaves the tag alone. Returns whether there is one.
  bool showTagOf(const std::string& frequency);
  /// Shows a frequency whose squelch is open, and its tag, and takes it as a hit. Returns whether
  /// it was in the hit list already.
  bool takeHit(const std::string& frequency);
  /// With `chkSkip` ticked: has the radio pass on from what is known.
  void skipIf(bool known);

  PollControls controls_;
  PollOutside outside_;

 private:
  void showChannelTag(const std::string& frequency, const std::string& number);
  void showChannelNumber(const std::string& number, bool markBank);

  PanelBase& front_;
};

}  // namespace tarnvex::monitor
