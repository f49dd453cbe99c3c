#include "radio/outgoing.h"

namespace tarnvex::radio {

std::string withTopBits(std::string bytes) {
  for (char& c : bytes) {
    c = c == '\r' ? c : static_cast<char>(c | 0x80);
  }
  return bytes;
}

std::vector<OutgoingPart> slowly(const OutgoingPart& part) {
  std::vector<OutgoingPart> parts;
  Instant delay = part.delay;
  for (const char c : part.bytes) {
    parts.push_back({std::string(1, c), delay, true, part.timing});
    delay += std::chrono::milliseconds(20);
  }
  return parts;
}

}  // namespace tarnvex::radio
