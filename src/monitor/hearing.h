#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "link/scanner_commands.h"
#include "monitor/panel_state.h"
#include "monitor/reception.h"
#include "platform/shared_state.h"
#include "platform/table.h"

namespace tarnvex::monitor {

/// A frequency as it is shown, such as "155.1150", in Hz. Nothing for any other text.
std::optional<std::int64_t> hertzOf(std::string_view shown);
/// Whether a text is the ID of a talkgroup: digits and dashes, and not the sign for none.
bool namesTalkgroup(std::string_view text);

/// Gathers what a tick of the poll hears and tells the listener at its end. A reply whose frequency
/// or ID doesn't read as one is no reception. It asks the radio nothing.
class Hearing {
 public:
  /// The tags are those on the front, and the slots of talkgroups. `channels` is the plan's channel
  /// table. All of it outlives this.
  Hearing(ReceptionListener& listener, const platform::SharedState& state, const PanelBase& front,
          const platform::Table& channels)
      : listener_(listener), state_(state), front_(front), channels_(channels) {}

  /// A channel is active, and on the front.
  void channel(const link::ChannelReply& reply, bool toneSquelch, int bars);
  /// The squelch is open in a search.
  void frequency(const link::SignalReply& reply, int bars);
  /// A talkgroup is active, and on the front, on the voice frequency that is given; `bank`,
  /// 0 to 9, is the one of the plan that has it.
  void talkgroup(const std::string& id, std::optional<int> bank,
                 const std::optional<std::string>& frequency, int bars);

  /// The tick, or a round of an ID loop, is over.
  void tell();

 private:
  [[nodiscard]] Heard begin(int bars) const;

  ReceptionListener& listener_;
  const platform::SharedState& state_;
  const PanelBase& front_;
  const platform::Table& channels_;
  std::optional<Heard> heard_;
};

}  // namespace tarnvex::monitor
