#pragma once

namespace tarnvex::radio {

/// Base of classes that can be neither copied nor moved, because they own a system resource or
/// because others hold references to them.
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
