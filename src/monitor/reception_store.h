#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "monitor/reception.h"
#include "platform/non_copyable.h"
#include "platform/notifier.h"

namespace tarnvex::monitor {

/// Keeps receptions. Every operation returns at once; the work is done beside the poll, in the
/// order of the calls. A store that has failed for good drops what it is given.
class ReceptionStore : private platform::NonCopyable {
 public:
  virtual ~ReceptionStore() = default;

  /// Writes a reception; `number` is the caller's. Another write of the same number replaces it, up
  /// to the one that is `final`.
  virtual void write(int number, const Reception& reception, bool final) = 0;
  /// Drops what began before that time (milliseconds UTC), a slice at a time.
  virtual void thin(std::int64_t before) = 0;
  /// Drops everything.
  virtual void clear() = 0;
  /// The file with the rows, as the file system spells it. Empty for a store without one.
  [[nodiscard]] virtual std::string file() const = 0;

  /// Rows have come or gone. Told between the core's steps, like a user's event.
  platform::Notifier<> changed;
  /// Something that the user has to know, as whole sentences; likewise.
  std::function<void(const std::string& words)> onTrouble;
};

}  // namespace tarnvex::monitor
