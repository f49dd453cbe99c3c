#pragma once

#include "platform/non_copyable.h"

namespace tarnvex::link {

class ScannerLink;

/// The radio's streaming of IDs, which a poll keeps on for as long as it follows them in a loop.
///
/// Whoever needs the line for longer calls `end` first. It runs in a handler, while the loop waits
/// below it for the handler to return; the loop then finds its stream ended and sends nothing more.
class IdStream : platform::NonCopyable {
 public:
  explicit IdStream(ScannerLink& link) : link_(link) {}

  /// A loop begins: "IDN".
  void begin();
  /// The loop's closing "IDF". Nothing if no loop is on.
  void end();
  [[nodiscard]] bool on() const { return on_; }

 private:
  ScannerLink& link_;
  bool on_ = false;
};

}  // namespace tarnvex::link
