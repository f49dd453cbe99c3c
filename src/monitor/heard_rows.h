#pragma once

#include "link/link_state.h"
#include "monitor/reception.h"
#include "platform/notifier.h"
#include "platform/table.h"

namespace tarnvex::monitor {

/// The rows of the plan that are being received, for the main window, which marks them. A poll
/// notifies it instead of the log, and it passes everything on to the log. Only one of the two
/// tables has such a row at a time. A frequency that a search has found belongs to no row.
class HeardRows : public ReceptionListener {
 public:
  /// What it works with. All of it outlives this.
  struct Outside {
    ReceptionListener& log;
    /// Nothing is heard while this isn't live.
    const link::LinkState& line;
    const platform::Table& talkgroups;
    /// Whether the plan may hold an EDACS ID in either of its forms.
    bool convertsIds;
  };

  explicit HeardRows(Outside outside);

  /// The row of the channel table, or 0.
  [[nodiscard]] int channel() const { return rows_.channel; }
  /// The row of the talkgroup table, or 0. If several slots of the bank have the ID, the last
  /// one counts, as for its tag.
  [[nodiscard]] int talkgroup() const { return rows_.talkgroup; }
  /// One of the rows has changed.
  platform::Notifier<> changed;

  void tick(const Heard* heard) override;
  void recordingBegins() override { outside_.log.recordingBegins(); }
  void recordingEnds(const std::string& file) override { outside_.log.recordingEnds(file); }

 private:
  struct Rows {
    int channel = 0;
    int talkgroup = 0;

    bool operator==(const Rows&) const = default;
  };

  [[nodiscard]] Rows rowsOf(const Heard& heard) const;

  Outside outside_;
  Rows rows_;
  platform::Connection lineChanged_;
};

}  // namespace tarnvex::monitor
