#pragma once

#include <gtest/gtest.h>

#include <string>

#include "radio/radio.h"

namespace tarnvex::radio {

/// Plays a conversation, such as "KEY13; MD > MD09; IC > IC B1*": each reply that differs is a
/// failure of its own. A star stands for the rest of a reply; one that isn't stated is not looked
/// at.
inline void play(Radio& radio, const std::string& conversation) {
  for (std::size_t start = 0, end = 0; end != std::string::npos; start = end + 2) {
    end = conversation.find("; ", start);
    const std::string line = conversation.substr(start, end - start);
    const std::size_t arrow = line.find(" > ");
    std::string reply = radio.exchange(line.substr(0, arrow));
    if (arrow == std::string::npos) continue;
    std::string expected = line.substr(arrow + 3);
    if (expected.ends_with('*')) {
      expected.pop_back();
      reply = reply.substr(0, expected.size());
    }
    EXPECT_EQ(reply, expected) << line;
  }
}

/// Characters of a reply by position, counted from 1.
inline std::string part(const std::string& reply, std::size_t first, std::size_t last) {
  return first <= reply.size() ? reply.substr(first - 1, last - first + 1) : "";
}

}  // namespace tarnvex::radio
