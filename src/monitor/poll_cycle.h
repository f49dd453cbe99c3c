#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "link/scanner_commands.h"
#include "link/scanner_link.h"
#include "monitor/hearing.h"
#include "monitor/hit_lists.h"
#include "monitor/panel_state.h"
#include "monitor/recording.h"
#include "monitor/switch_box.h"
#include "platform/clock.h"
#include "platform/event_gate.h"
#include "platform/non_copyable.h"
#include "platform/table.h"
#include "platform/window.h"
#include "search/custom_search.h"

namespace tarnvex::monitor {

/// What a poll works with besides its panel. All of it outlives the poll.
struct PollOutside {
  link::ScannerLink& link;
  platform::EventGate& gate;
  platform::SharedState& state;
  const platform::Clock& clock;
  /// Exchanges the main windows after the other model has answered. The tick ends after it.
  std::function<void()> switchScanner;
  /// The full name of the frequency file in use, empty if there is none.
  std::function<std::string()> planName;
  /// Starts and stops the recording of receptions.
  Recording& recording;
  /// Is notified of what is heard.
  ReceptionListener& receptions;
  HitLists& hits;
  search::CustomSearch& search;
  /// The main window, its tables and its mute box.
  platform::Window& window;
  platform::Table& MSFlexGrid1;
  platform::Table& MSFlexGrid2;
  SwitchBox& Check6;
};

inline constexpr std::string_view kScanning = "Scanning";
/// Shown on the main line of an ID search while no ID is active.
inline constexpr std::string_view kNoId = "- -   - - -";

/// What the polls of both radios have in common. A poll keeps the panel up to date. Each tick first
/// asks a fixed set of questions, then branches on the radio's mode and writes the answers into the
/// panel. A tick keeps no state of its own: what fails in one tick is tried again in the next. A
/// reply that doesn't fit leaves its element as it was.
///
/// Deliberate: elements that a mode doesn't write keep what an earlier mode left there. So the
/// panel depends on the modes before, as the radio's own display does.
///
/// Called by the poll timer through the event gate, which lets pending events run before each tick.
/// In the ID modes a tick stays in a loop, which yields, until the mode changes.
class PollCycle : private platform::NonCopyable {
 protected:
  PollCycle(PanelBase& front, PollOutside outside);
  ~PollCycle() = default;

  /// Sends a command and returns the reply.
  std::string ask(std::string_view command) { return outside_.link.SendCommand(command); }
  bool asksOn(std::string_view command, std::string_view on) { return ask(command) == on; }
  platform::SharedState& state() { return outside_.state; }
  link::IdStream& ids() { return outside_.link.ids(); }

  /// Asks the radio who it is. If the answer is unknown, or contradicts an earlier one, asks once
  /// more on a quiet line, so that a stray line doesn't exchange the windows.
  link::IdentityReply askIdentity();
  /// Switches to the main window of the other model, which has answered. The tick must end after
  /// it.
  void handOver(const std::string& modelKey);
  /// Called once per tick with whether the display shows a reception.
  void gateRecording(bool active);
  /// Asks for the mode. If the answer isn't a mode, the next exchange waits for a quiet line.
  std::string askModeReply();
  void askMode();
  void askLimits();
  void askLimit(search::LimitBox& box, std::string_view command);
  /// Writes to the main line, unless the user is keying digits there.
  void showFrequency(std::string_view text);
  /// No channel or ID is active.
  void showNothingActive();
  /// Shows the channel number, frequency, tag and flags of an active channel. With `markBank`, its
  /// bank is the only one marked. Without a number, the number stays as it was, and the tag, too,
  /// if it is the shown frequency's; without a frequency, frequency and tag stay. If the reply has
  /// neither, changes nothing and returns false.
  bool showActiveChannel(const link::ChannelReply& channel, bool markBank);
  /// Shows a frequency whose squelch is open with its tag, or with `otherwise` if it has none, and
  /// takes it as a hit. Returns whether it was in the hit list already.
  bool takeHit(const std::string& frequency, const std::string& otherwise);
  /// See `HitLists::skipIf`.
  void skipIf(bool known) { outside_.hits.skipIf(known); }

  PollOutside outside_;
  Hearing hearing_;

 private:
  /// The number of a channel as the panel shows it: the radio says whether it has priority.
  std::string askShownNumber(int channel);
  void showChannelTag(const std::string& frequency, std::optional<int> channel);

  PanelBase& front_;
  /// Whether the radio on this line has named itself.
  bool named_ = false;
};

}  // namespace tarnvex::monitor
