#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

/// The entry of every target: runs the program's code on arbitrary bytes. A crash, a sanitizer
/// report, a failed check or an endless run is a fault.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace tarnvex::fuzz {

inline std::string_view asText(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// A check of the target itself.
inline void require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

/// A failed check of one of the fakes counts as well.
inline void stopAtFailures() {
  testing::GTEST_FLAG(throw_on_failure) = true;
}

}  // namespace tarnvex::fuzz
