#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

/// The entry point of every target: runs the program's code on arbitrary bytes. A crash, a
/// sanitizer report, a failed check or an endless loop is a fault.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace tarnvex::fuzz {

inline std::string_view asText(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// A check that a target makes.
inline void require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

/// Makes a failed check in one of the fakes count as well.
inline void stopAtFailures() {
  testing::GTEST_FLAG(throw_on_failure) = true;
}

}  // namespace tarnvex::fuzz
