#include "fuzz_target.h"
#include "link/scanner_commands.h"

/// Reads any text as a reply, and checks that no field is longer than its place in the reply.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnvex::link;
  using tarnvex::fuzz::require;
  const std::string text(tarnvex::fuzz::asText(data, size));

  const IdentityReply identity(text);
  require(!identity.isError() || !identity.namesModel());
  require(identity.model().size() <= 8 && identity.serialNumber().size() <= 10 &&
          identity.firmware().size() <= 3);
  const SignalReply signal(text);
  require(signal.tableFrequency().has_value() == signal.megahertz().has_value());
  // Three characters can be a number with an exponent, such as "9E9".
  constexpr std::size_t kLongestWhole = 10;
  require(signal.shownFrequency().size() <= kLongestWhole + 5);
  const ChannelReply channel(text);
  require(channel.number().value_or(1) >= 1 && channel.number().value_or(1) <= 300);
  require(!channel.isNothing() || channel.shownFrequency() == ".");
  require(size >= 17 || !channel.trunked());
  require(size >= 20 || !channel.delay());
  require(size >= 23 || !channel.lockout());
  require(size >= 32 || !channel.tone());
  const TrunkIdReply id(text);
  require(id.bank().size() <= 1 && id.slot().size() <= 2 && id.id().size() <= 6);
  require(bankLetters(text).size() + 3 == size || size < 4);
  require(!priorityChannelOf(text) || size >= 5);
  require(!searchLimit(text) || size >= 4);
  require(searchedId(text).size() <= 6 && (!searchedId(text).empty() || saysNoId(text)));
  require(!heldId(text) || heldId(text)->size() <= 6);
  require(text.starts_with(modeOf(text)));
  return 0;
}
