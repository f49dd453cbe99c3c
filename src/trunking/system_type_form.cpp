#include "trunking/system_type_form.h"

#include <array>
#include <utility>
#include <vector>

#include "link/scanner_commands.h"
#include "memory/plan_records.h"
#include "platform/convert.h"
#include "trunking/system_type.h"

namespace tarnvex::trunking {
namespace {

using memory::ChannelRecord;

constexpr double kStepUnitsPerMegahertz = 10000;

std::vector<std::string> typeNames() {
  std::vector<std::string> names;
  for (const auto& type : systemTypes()) {
    names.emplace_back(type.name);
  }
  return names;
}

std::vector<std::string> stepNames(const TrunkSystemType& type) {
  std::vector<std::string> names;
  for (int step = type.firstStep; step <= type.lastStep; step += type.firstStep) {
    names.push_back(platform::format(step / kStepUnitsPerMegahertz, "0.0000") + " MHz");
  }
  return names;
}

}  // namespace

Form3::Form3(SystemTypeOutside outside) : Combo1("Combo1", typeNames()), outside_(outside) {
  BFText.setVisible(false);
  Combo2.setVisible(false);
  Combo1.onClick = [this] { chooseType(); };
  Command1.onClick = [this] { proceed(); };
}

void Form3::load() {
  outside_.dialogs.setBusyPointer(false);
  describeChannel();
  Combo2.setListIndex(0);
  const link::TrunkTypeReply reply(outside_.link.SendCommand(link::command::kTrunkType));
  Combo1.setListIndex(systemTypeOf(reply.word()));
}

void Form3::describeChannel() {
  const std::string& channel = outside_.Channel.caption();
  const auto row = platform::toInteger(channel);
  if (!row) {
    return;
  }
  const auto cell = [&](int col) { return outside_.MSFlexGrid1.textMatrix(*row, col); };
  Label2.setCaption("Info: Ch." + channel + " " + cell(ChannelRecord::Frequency) + " " +
                    cell(ChannelRecord::AlphaTag));
}

void Form3::chooseType() {
  const auto& type = systemTypes()[static_cast<std::size_t>(Combo1.listIndex())];
  if (type.tuned()) {
    Combo2.setItems(stepNames(type));
  }
  showTuning(type.tuned());
}

void Form3::showTuning(bool shown) {
  for (auto* control : std::to_array<platform::Control*>({&BFLabel, &BFText, &OSLabel, &Combo2})) {
    control->setVisible(shown);
  }
}

void Form3::proceed() {
  Command1.setEnabled(false);
  outside_.state.SystemTypeIndex = std::to_string(Combo1.listIndex());
  const link::TrunkTypeReply reply(outside_.link.SendCommand(link::command::kTrunkType));
  const std::string command = typeCommand(reply.bank());
  outside_.link.SendCommand(link::key::kTrunk);
  outside_.link.SendCommand(command);
  if (outside_.gate.ended()) {
    return;
  }
  outside_.dialogs.setBusyPointer(true);
  closed.notify();
}

std::string Form3::typeCommand(std::string_view bank) const {
  // Deliberate: if nothing is chosen, the number is 0, which the radio refuses.
  const int type = Combo1.listIndex() + 1;
  if (!BFLabel.visible()) {
    return link::command::setTrunkType(bank, type);
  }
  // Deliberate: there are only two step codes, one for the first entry and one for all others. The
  // other steps in the list are sent as the second code, too.
  const std::string_view step = Combo2.listIndex() == 0 ? "0005" : "0125";
  std::string base;
  if (const auto megahertz = platform::toReal(BFText.text())) {
    base = link::command::wireFrequency(*megahertz);
  }
  return link::command::setTrunkType(bank, type, base, step);
}

}  // namespace tarnvex::trunking
