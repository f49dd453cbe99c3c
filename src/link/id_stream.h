#pragma once

#include "platform/non_copyable.h"

namespace tarnvex::link {

class ScannerLink;

/// The radio's stream of IDs. A poll turns it on while it follows the IDs in a loop.
///
/// Code that needs the line for longer calls `end` first. It runs in a handler, which the loop has
/// called and waits for; the loop then finds the stream ended and sends nothing more.
class IdStream : private platform::NonCopyable {
 public:
  explicit IdStream(ScannerLink& link) : link_(link) {}

  /// Sends "IDN". Called when a loop begins.
  void begin();
  /// Sends "IDF" if a loop is running.
  void end();
  [[nodiscard]] bool on() const { return on_; }

 private:
  ScannerLink& link_;
  bool on_ = false;
};

}  // namespace tarnvex::link
