#pragma once

#include <string>
#include <string_view>

#include "link/scanner_commands.h"
#include "monitor/knob.h"
#include "monitor/poll_cycle.h"

namespace tarnvex::monitor {

/// Keeps the picture of a BC895XLT true by asking. One tick asks a fixed opening set of questions,
/// branches on the radio's mode and writes the answers into the panel. The radio's mode is the
/// state; the tick holds none, and the next tick is the retry of this one. A reply that doesn't fit
/// leaves its element as it was.
///
/// Elements that a mode doesn't name keep what an earlier mode left, so the panel depends on the
/// way as the radio's own does.
///
/// Called by the poll timer, through the event gate, which lets pending events run before each
/// tick. In the ID modes a tick stays inside, yielding, until the mode changes.
class Bc895Poll {
 public:
  Bc895Poll(PanelState& panel, PollControls controls, PollOutside outside);

  void tick();

 private:
  std::string ask(std::string_view command) { return outside_.link.SendCommand(command); }
  bool asksOn(std::string_view command, std::string_view on) { return ask(command) == on; }

  bool otherModelAnswers();
  void askLimits();
  void showSignalBars(const link::SignalReply& signal);
  void branch(const std::string& mode, const link::SignalReply& signal);

  void search(const std::string& mode, const link::SignalReply& signal);
  void prepareSearch(const std::string& mode);
  bool searchFinds(const link::SignalReply& signal);
  bool showTagOf(const std::string& frequency);

  void conventional(const std::string& mode);
  void showChannel(const std::string& mode, const link::ChannelReply& channel);
  void showNoChannel();
  void showChannelNumber(const std::string& mode, const std::string& number);
  void showChannelTag(const std::string& frequency, const std::string& number);
  void showTone(const link::ChannelReply& channel);

  void trunkedVoice(const std::string& mode);
  void showVoiceId(const link::TrunkIdReply& id);
  /// Looks the ID up in the bank of the running frequency, which it asks for, and shows its tag or
  /// none. `onTable` tells whether the frequency is in the channel table.
  void showTalkgroupTag(const std::string& id, bool& onTable);

  void enterIdMode(bool hold);
  void holdId();
  void holdRound();
  void searchIds();
  void searchRound(bool& found);
  std::string takeSearchedId(const std::string& id, bool& found);
  void mirrorTitle();

  void showFrequency(const std::string& text);
  void sendMode();

  PanelState& panel_;
  PollControls controls_;
  PollOutside outside_;
  Knob knob_;
};

}  // namespace tarnvex::monitor
