#include "link/identity.h"

#include "platform/convert.h"

namespace tarnvex::link {

namespace {

void adoptFirmware(platform::SharedState& state, const IdentityReply& identity) {
  if (const auto firmware = platform::toReal(identity.firmware())) {
    state.FirmwareText = platform::shortest(*firmware / 100);
  }
}

}  // namespace

void adoptBc895(platform::SharedState& state) {
  adoptOtherModel(state, "BC895");
  state.SerialNumberText = "N/A";
  state.FirmwareText = "N/A";
}

void adoptBc245(platform::SharedState& state, const IdentityReply& identity) {
  state.ModelKey = "BC245";
  state.ScannerName = identity.model();
  state.SerialNumberText = identity.serialNumber();
  adoptFirmware(state, identity);
}

void adoptPolledBc245(platform::SharedState& state, const IdentityReply& identity) {
  state.ModelKey = "BC245";
  state.ScannerName = identity.polledModel();
  state.SerialNumberText = identity.polledSerialNumber();
  adoptFirmware(state, identity);
}

void adoptOtherModel(platform::SharedState& state, const std::string& modelKey) {
  state.ModelKey = modelKey;
  state.ScannerName = modelKey + "XLT";
}

}  // namespace tarnvex::link
