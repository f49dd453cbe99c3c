#pragma once

namespace tarnvex::radio {

/// Base of what can be neither copied nor moved: it holds something of the machine, or others hold
/// references to it.
class NonCopyable {
 public:
  NonCopyable(const NonCopyable&) = delete;
  NonCopyable& operator=(const NonCopyable&) = delete;
  NonCopyable(NonCopyable&&) = delete;
  NonCopyable& operator=(NonCopyable&&) = delete;

 protected:
  NonCopyable() = default;
  ~NonCopyable() = default;
};

}  // namespace tarnvex::radio
