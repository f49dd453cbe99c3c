#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "monitor/reception.h"
#include "platform/non_copyable.h"
#include "platform/notifier.h"

namespace tarnvex::monitor {

/// Stores receptions. Every operation returns at once; the work is done in another thread, in the
/// order of the calls. A store that has failed for good ignores what it is given.
class ReceptionStore : private platform::NonCopyable {
 public:
  virtual ~ReceptionStore() = default;

  /// Writes a reception. The caller chooses `number`. Another write with the same number replaces
  /// the reception, until one is `final`.
  virtual void write(int number, const Reception& reception, bool final) = 0;
  /// Deletes what began before this time (milliseconds UTC), a part at a time.
  virtual void thin(std::int64_t before) = 0;
  /// Deletes everything.
  virtual void clear() = 0;
  /// The path of the store's file, in the file system's encoding. Empty for a store without a file.
  [[nodiscard]] virtual std::string file() const = 0;

  /// Rows were added or deleted. Notified in the core's thread, by the event loop.
  platform::Notifier<> changed;
  /// Called through the event gate with a message for the user, in whole sentences.
  std::function<void(const std::string& words)> onTrouble;
};

}  // namespace tarnvex::monitor
