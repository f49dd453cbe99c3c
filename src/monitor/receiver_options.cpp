#include "monitor/receiver_options.h"

#include <optional>
#include <string>

#include "platform/convert.h"

namespace tarnvex::monitor {
namespace {

constexpr std::string_view kSection = "BC245";
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

ReceiverOptions::ReceiverOptions(Parts parts, link::ScannerLink& link,
                                 platform::SettingsStore& settings)
    : parts_(parts),
      link_(link),
      settings_(settings),
      rows_{{{&parts.Check5, &link::kFrequencyId},
             {&parts.Check4, &link::kStatusBit},
             {&parts.Check3, &link::kAttenuator},
             {&parts.Check2, &link::kAutoLight},
             {&parts.Check1, &link::kEdacsDecimal},
             {&parts.Check6, &link::kMuteSwitch},
             {&parts.Check7, &link::kToneDetection}}} {
  for (const Row& row : rows_) {
    row.box->onClick = [this, &row] { boxClicked(row); };
  }
  platform::groupOptions({&parts_.Option7, &parts_.Option8});
  parts_.Option7.onClick = [this] { saveView(false); };
  parts_.Option8.onClick = [this] { saveView(true); };
}

void ReceiverOptions::loadView() {
  if (const auto activeBanks = toBoolean(settings_.getSetting(kSection, kValue, kTrue))) {
    parts_.Option8.setValue(*activeBanks);
  }
  if (!parts_.Option8.value()) {
    parts_.Option7.setValue(true);
  }
}

void ReceiverOptions::readSwitches() {
  for (const auto& [box, subject] : rows_) {
    // The user may have ticked it by now, behind the message of a silent radio.
    if (box == &parts_.Check1 && box->value()) {
      continue;
    }
    if (link_.SendCommand(subject->read) == subject->on) {
      box->setValue(true);
      if (box == &parts_.Check3) {
        parts_.Att.setVisible(true);
      }
    }
  }
}

void ReceiverOptions::boxClicked(const Row& row) {
  const bool on = row.box->value();
  link_.SendCommand(row.subject->form(on));
  if (row.box == &parts_.Check3) {
    parts_.Att.setVisible(on);
  }
}

void ReceiverOptions::saveView(bool activeBanks) {
  settings_.saveSetting(kSection, kValue, activeBanks ? kTrue : kFalse);
}

}  // namespace tarnvex::monitor
