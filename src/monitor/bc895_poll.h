#pragma once

#include <string>

#include "link/scanner_commands.h"
#include "monitor/knob.h"
#include "monitor/poll_cycle.h"

namespace tarnvex::monitor {

/// The poll of the BC895XLT.
class Bc895Poll : public PollCycle {
 public:
  Bc895Poll(PanelState& panel, PollControls controls, PollOutside outside);

  void tick();

 private:
  bool otherModelAnswers();
  [[nodiscard]] bool showsReception() const;
  void showSignalBars(const link::SignalReply& signal);
  void branch(const std::string& mode, const link::SignalReply& signal);

  void search(const std::string& mode, const link::SignalReply& signal);
  void prepareSearch(const std::string& mode);
  bool searchFinds(const link::SignalReply& signal);

  void conventional(const std::string& mode);
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

  void sendMode();

  PanelState& panel_;
  Knob knob_;
};

}  // namespace tarnvex::monitor
