#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "radio/radio.h"

namespace tarnvex::radio {

/// One exchange that a test expects.
struct Exchange {
  std::string_view line;
  std::string_view reply;
};

/// Plays a conversation; each reply that differs is a failure of its own.
inline void play(Radio& radio, const std::vector<Exchange>& script) {
  for (const Exchange& each : script) EXPECT_EQ(radio.exchange(each.line), each.reply) << each.line;
}

/// Sends lines without looking at the replies.
inline void send(Radio& radio, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) radio.exchange(line);
}

/// Characters of a reply by position, counted from 1.
inline std::string part(const std::string& reply, std::size_t first, std::size_t last) {
  return first <= reply.size() ? reply.substr(first - 1, last - first + 1) : "";
}

}  // namespace tarnvex::radio
