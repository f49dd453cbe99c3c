#pragma once

#include <string>

#include "link/scanner_commands.h"
#include "monitor/knob.h"
#include "monitor/poll_cycle.h"

namespace tarnvex::monitor {

/// The poll of the BC895XLT.
class Bc895Poll : public PollCycle {
 public:
  Bc895Poll(PanelState& panel, PollOutside outside);

  void tick();
  /// The poll starts after a pause.
  void begin() { knob_.forgetPresses(); }

 private:
  bool otherModelAnswers();
  void mirrorMute(const std::string& answer);
  [[nodiscard]] bool showsReception() const;
  /// Converts the level to bars. Returns false, and the bars stay as they were, if the level is
  /// beyond the meter's range.
  bool takeBars(const link::SignalReply& signal);
  void showSignalBars(const link::SignalReply& signal);
  void branch(const std::string& mode, const link::SignalReply& signal);

  void search(const std::string& mode, const link::SignalReply& signal);
  void prepareSearch(const std::string& mode);
  bool searchFinds(const link::SignalReply& signal);

  void conventional(const std::string& mode);
  void showNoChannel(const std::string& mode);
  void showChannel(const link::ChannelReply& channel, const std::string& mode);
  bool entersTone(const std::string& mode);
  void showTone(const link::ChannelReply& channel);

  void trunkedVoice(const std::string& mode);
  void showVoiceId(const link::TrunkIdReply& answer);
  /// Asks for the frequency being received, looks the ID up in the bank of its channel, and shows
  /// the tag, if any. Returns whether the frequency is in the channel table.
  bool showTalkgroupTag(const std::string& id);

  void enterIdMode(bool hold);
  void holdId();
  void holdRound();
  void searchIds();
  /// What the ID search keeps from round to round.
  struct IdStay {
    bool found = false;
    /// The first letters of the radio's answers to "IDN".
    std::string head;
  };
  void searchRound(IdStay& stay);
  std::string askForId(IdStay& stay);
  void showSearchedId(const std::string& answer, IdStay& stay);
  void mirrorTitle();

  void sendMode();

  /// What the main line shows before anything has been read.
  static constexpr std::string_view kDesignText = "Initializing";

  PanelState& panel_;
  int bars_ = 0;
  Knob knob_;
};

}  // namespace tarnvex::monitor
