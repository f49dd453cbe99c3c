#include <algorithm>
#include <memory>
#include <vector>

#include "fuzz_target.h"
#include "shell/bc245_form.h"
#include "shell/bc895_form.h"
#include "support/world.h"

namespace tarnvex {
namespace {

/// A radio that answers with the bytes. For each command one byte decides what comes: for "MD" a
/// mode, otherwise a length, which is followed by that many bytes as the reply, or one of the
/// line's faults. When the bytes are used up, the radio is silent.
class ByteRadio {
 public:
  explicit ByteRadio(std::string_view bytes) : bytes_(bytes) {}

  [[nodiscard]] bool spent() const { return bytes_.empty(); }
  unsigned take() {
    if (spent()) {
      return 0;
    }
    const auto byte = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    return byte;
  }

  std::vector<test::Piece> answer(std::string_view command) {
    constexpr unsigned kModes = 21;
    constexpr unsigned kLost = 0xFC;
    constexpr unsigned kEndless = 0xFD;
    constexpr unsigned kStreamed = 0xFE;
    constexpr unsigned kSilent = 0xFF;
    if (spent()) {
      return {};
    }
    const unsigned kind = take();
    if (command == "MD" && kind < kModes) {
      const std::string digits = std::to_string(100 + kind).substr(1);
      return {{"MD" + digits + "\r"}};
    }
    switch (kind) {
      case kSilent:
        return {};
      case kLost:
        return {{text(take()), 1, true}};
      case kEndless:
        return {{text(take())}};
      case kStreamed:
        return {{text(take()) + "\r"}, {text(take()) + "\r"}};
      default:
        return {{text(kind) + "\r"}};
    }
  }

 private:
  std::string text(unsigned length) {
    std::string taken(bytes_.substr(0, length));
    bytes_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view bytes_;
};

std::unique_ptr<shell::MainForm> makeForm(test::World& world, bool bc245) {
  world.state.ModelKey = bc245 ? "BC245" : "BC895";
  if (bc245) {
    return std::make_unique<shell::Form2>(world.services, world.outside());
  }
  return std::make_unique<shell::Form4>(world.services, world.outside());
}

void fillPlan(shell::MainForm& form) {
  form.MSFlexGrid1.setTextMatrix(12, 0, "12");
  form.MSFlexGrid1.setTextMatrix(12, 1, "155.1150");
  form.MSFlexGrid1.setTextMatrix(12, 7, "Fire");
  form.MSFlexGrid1.setTextMatrix(300, 1, "851.0125");
  form.MSFlexGrid2.setTextMatrix(1000, 1, "001234");
  form.MSFlexGrid2.setTextMatrix(1000, 2, "Patrol");
}

void poll(ByteRadio& bytes) {
  constexpr int kMostTicks = 16;
  test::World world;
  world.radio.userLeaves = true;
  world.radio.answer = [&](std::string_view command) { return bytes.answer(command); };
  const unsigned switches = bytes.take();
  const auto set = [&](unsigned bit) { return (switches >> bit & 1U) != 0; };
  const auto form = makeForm(world, set(0));
  fillPlan(*form);
  world.state.EntryActive = set(1);
  world.state.KnobUpHeld = set(2);
  world.state.KnobDownHeld = set(3);
  form->window.setMinimised(set(4));
  world.state.LowerLimitEditing = set(5);
  form->linkControls.Command3.userClick();
  form->hitLists.chkSkip.setValue(set(6));
  for (int tick = 0; tick < kMostTicks && !bytes.spent() && world.switches == 0; ++tick) {
    world.gate.enterTimer(form->Scantimer);
    fuzz::require(!form->Scantimer.running() && !world.gate.busy());
    fuzz::require(world.dialogs.takeBoxes().size() <= 1);
    if (!form->MSComm1->portOpen()) {
      form->linkControls.Command3.userClick();
    }
  }
}

}  // namespace
}  // namespace tarnvex

/// Runs the poll with any replies, and checks that each tick ends, with one message at most.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnvex::fuzz::stopAtFailures();
  tarnvex::ByteRadio bytes(tarnvex::fuzz::asText(data, size));
  tarnvex::poll(bytes);
  return 0;
}
