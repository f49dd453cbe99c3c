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

/// A frequency as the panel shows it, such as "155.1150", in Hz. Nothing for any other text.
std::optional<std::int64_t> hertzOf(std::string_view shown);
/// Whether a text is the ID of a talkgroup: digits and dashes, but not the dashes that mean none.
bool namesTalkgroup(std::string_view text);

/// Collects what a tick of the poll hears and passes it to the listener at the end of the tick. A
/// reply without a valid frequency or ID isn't a reception. It sends nothing to the radio.
class Hearing {
 public:
  /// Tags and the slots of talkgroups are read from `front`. `channels` is the plan's channel
  /// table. All arguments outlive this.
  Hearing(ReceptionListener& listener, const platform::SharedState& state, const PanelBase& front,
          const platform::Table& channels)
      : listener_(listener), state_(state), front_(front), channels_(channels) {}

  /// A channel is active and shown on the front.
  void channel(const link::ChannelReply& reply, bool toneSquelch, int bars);
  /// The squelch is open in a search.
  void frequency(const link::SignalReply& reply, int bars);
  /// A talkgroup is active and shown on the front. `frequency` is that of its voice channel, and
  /// `bank` (0 to 9) the plan's bank that has this frequency.
  void talkgroup(const std::string& id, std::optional<int> bank,
                 const std::optional<std::string>& frequency, int bars);

  /// The tick, or a round of an ID loop, has ended.
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
