#include "monitor/receiver_options.h"

#include <optional>
#include <string>

#include "platform/convert.h"

namespace tarnvex::monitor {
namespace {

constexpr std::string_view kBc245Section = "BC245";
constexpr std::string_view kValue = "TrunkedView";
constexpr std::string_view kTrue = "True";
constexpr std::string_view kFalse = "False";

std::optional<bool> toBoolean(std::string_view text) {
  if (text == kTrue || text == kFalse) {
    return text == kTrue;
  }
  const auto number = platform::toReal(text);
  return number ? std::optional(*number != 0) : std::nullopt;
}

}  // namespace

ReceiverOptions::ReceiverOptions(SwitchBox& mute, platform::Label& att, link::ScannerLink& link,
                                 platform::SettingsStore& settings)
    : Check1("Check1", "EDACS Decimal Mode", link::kEdacsDecimal, link),
      Check2("Check2", "Auto Light Mode", link::kAutoLight, link),
      Check3("Check3", "Attenuator On", link::kAttenuator, link),
      Check4("Check4", "Status Bit On", link::kStatusBit, link),
      Check5("Check5", "Frequency ID On", link::kFrequencyId, link),
      Check6(mute),
      Check7("Check7", "Tone Detection On", link::kToneDetection, link),
      att_(att),
      settings_(settings) {
  Check3.onClick = [this] {
    Check3.write();
    att_.setVisible(Check3.value());
  };
  platform::groupOptions({&Option7, &Option8});
  Option7.onClick = [this] { saveView(false); };
  Option8.onClick = [this] { saveView(true); };
  platform::passKeysOn(
      {&Check1, &Check2, &Check3, &Check4, &Check5, &Check6, &Check7, &Option7, &Option8});
}

void ReceiverOptions::loadView() {
  if (const auto activeBanks = toBoolean(settings_.getSetting(kBc245Section, kValue, kTrue))) {
    Option8.setValue(*activeBanks);
  }
  if (!Option8.value()) {
    Option7.setValue(true);
  }
}

void ReceiverOptions::readSwitches() {
  for (SwitchBox* box : {&Check5, &Check4, &Check3, &Check2, &Check1, &Check6, &Check7}) {
    // The user may have ticked it while the message about a silent radio was open.
    if (box == &Check1 && box->value()) {
      continue;
    }
    if (box->isOn()) {
      box->setValue(true);
      if (box == &Check3) {
        att_.setVisible(true);
      }
    }
  }
}

void ReceiverOptions::saveView(bool activeBanks) {
  settings_.saveSetting(kBc245Section, kValue, activeBanks ? kTrue : kFalse);
}

}  // namespace tarnvex::monitor
