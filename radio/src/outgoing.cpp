#include "radio/outgoing.h"

#include <algorithm>

namespace tarnvex::radio {

std::string withTopBits(std::string bytes) {
  const auto withTopBit = [](char c) { return c == '\r' ? c : static_cast<char>(c | 0x80); };
  std::ranges::transform(bytes, bytes.begin(), withTopBit);
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
