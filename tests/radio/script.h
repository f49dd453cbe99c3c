#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "radio/radio.h"

namespace tarnvex::radio {

/// What happens on one line of a conversation: a command and its reply, or
///   wait MS | scene NAME | receive CHANNEL MS | talk ID MS     time and what is on the air
///   streamed                                 the lines that the radio has sent by itself
inline std::string happen(Radio& radio, const std::string& line) {
  std::istringstream words(line);
  std::string word, what;
  Millis ms = 0;
  words >> word >> what >> ms;
  if (word == "wait") {
    radio.advance(std::stoi(what));
  } else if (word == "scene") {
    EXPECT_TRUE(radio.playScene(what)) << line;
  } else if (word == "receive") {
    EXPECT_TRUE(radio.receive(std::stoi(what), ms)) << line;
  } else if (word == "talk") {
    EXPECT_TRUE(radio.talk(what, ms)) << line;
  } else if (word == "streamed") {
    std::string lines;
    for (const std::string& each : radio.unsolicited()) {
      lines += each + '.';
    }
    return lines;
  } else {
    return radio.exchange(line);
  }
  return "";
}

/// Plays a conversation such as "KEY13; MD > MD09; IC > IC B1*". Each reply that differs is a
/// separate failure. A star stands for the rest of a reply; if no reply is given, it may be
/// anything.
inline void play(Radio& radio, const std::string& conversation) {
  for (std::size_t start = 0, end = 0; end != std::string::npos; start = end + 2) {
    end = conversation.find("; ", start);
    const std::string line = conversation.substr(start, end - start);
    const std::size_t arrow = line.find(" > ");
    std::string reply = happen(radio, line.substr(0, arrow));
    if (arrow == std::string::npos) {
      continue;
    }
    std::string expected = line.substr(arrow + 3);
    if (expected.ends_with('*')) {
      expected.pop_back();
      reply = reply.substr(0, expected.size());
    }
    EXPECT_EQ(reply, expected) << line;
  }
}

/// Plays each conversation with a radio of its own.
inline void playEach(Model model, const std::vector<std::string>& conversations) {
  for (const std::string& conversation : conversations) {
    SCOPED_TRACE(conversation);
    Radio radio(model);
    play(radio, conversation);
  }
}

}  // namespace tarnvex::radio
