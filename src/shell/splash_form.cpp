#include "shell/splash_form.h"

#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::shell {

Form1::Form1(const Services& services, std::function<void()> identified)
    : services_(services), identified_(std::move(identified)), MSComm1_(services.ports.create()) {
  Timer1.onTick = [this] { identify(); };
  Timer1.setEnabled(true);
}

void Form1::identify() {
  if (const auto slot = platform::toInteger(services_.settings.getSetting("Options", "COM", "1"))) {
    MSComm1_->setCommPort(*slot);
  }
  MSComm1_->open();
  const auto probe = [this] {
    return services_.link.ProbeCommand(*MSComm1_, link::command::kIdentify);
  };
  std::string reply = probe();
  if (!link::IdentityReply(reply).isKnown()) {
    reply = probe();
  }
  if (link::IdentityReply(reply).isError()) {
    takeBc895();
  } else {
    takeBc245(reply);
  }
  MSComm1_->close();
  Timer1.setEnabled(false);
  identified_();
}

void Form1::takeBc895() {
  services_.state.ScannerName = "BC895XLT";
  services_.state.ModelKey = "BC895";
  services_.state.SerialNumberText = "N/A";
  services_.state.FirmwareText = "N/A";
}

void Form1::takeBc245(const std::string& reply) {
  const link::IdentityReply identity(reply);
  services_.state.ScannerName = identity.model();
  services_.state.ModelKey = "BC245";
  services_.state.SerialNumberText = identity.serialNumber();
  if (const auto firmware = platform::toReal(identity.firmware())) {
    services_.state.FirmwareText = platform::shortest(*firmware / 100);
  }
}

}  // namespace tarnvex::shell
