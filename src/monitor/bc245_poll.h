#pragma once

#include <optional>
#include <string>

#include "monitor/bc245_modes.h"
#include "monitor/bc245_panel.h"
#include "monitor/poll_cycle.h"
#include "monitor/receiver_options.h"
#include "platform/serial_port.h"

namespace tarnvex::monitor {

/// The poll of the BC245XLT.
///
/// While the radio follows IDs, the tick stays in a loop with `Scantimer` off. If the port is
/// closed meanwhile, the loop ends and the timer stays off until the user presses Connect or picks
/// a COM option.
class Bc245Poll : public PollCycle {
 public:
  /// `Scantimer` and `MSComm1` are the window's own poll timer and port.
  Bc245Poll(Bc245Panel& panel, PollOutside outside, const ReceiverOptions& options,
            platform::Timer& Scantimer, const platform::SerialPort& MSComm1);

  void tick();

 private:
  /// The frequency being received and the bank (0 to 9) of the plan's channel with it.
  struct Reception {
    std::optional<std::string> frequency;
    std::optional<int> bank;
  };
  /// What the ID loop keeps from round to round.
  struct IdStay {
    std::string id;
    std::string shown{kNoId};
    int bank = 0;
  };

  void takeIdentity(const link::IdentityReply& identity);
  [[nodiscard]] bool showsReception() const;
  void askIndicators();
  void workAutoLight();
  void showLight();
  void branch(const Bc245Mode& mode);
  void showIndicators(const Bc245Mode& mode);

  void conventional(bool scanning);
  void search(std::string_view code);
  void showSearched(bool open);
  void program();
  void selectBank();

  void trunked(bool scanning);
  void showVoiceId(const link::TrunkIdReply& answer);
  /// The slot as shown: with a "P" if it is its group's priority ID.
  std::string askSlot(const link::TrunkIdReply& answer);
  Reception askReception();
  /// The tag of an ID, empty if it has none. Nothing while the user is keying digits.
  std::optional<std::string> askTalkgroupTag(const std::string& id, std::optional<int> bank);

  void showTag(const std::optional<std::string>& tag);

  bool startsRadio(std::string_view code);
  void followIds();
  void idRound(IdStay& stay);
  link::IdLine takeLine();
  void takeId(const link::IdLine& line, bool held, IdStay& stay);
  void askIdMode();

  Bc245Panel& panel_;
  const ReceiverOptions& options_;
  platform::Timer& timer_;
  const platform::SerialPort& port_;
};

}  // namespace tarnvex::monitor
