#include "shell/splash_form.h"

#include "link/identity.h"
#include "platform/convert.h"

namespace tarnvex::shell {

Form1::Form1(const Services& services, std::function<void()> identified)
    : services_(services), identified_(std::move(identified)), MSComm1_(services.makePort()) {
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
  if (const link::IdentityReply identity(reply); identity.isError()) {
    link::adoptBc895(services_.state);
  } else {
    link::adoptBc245(services_.state, identity);
  }
  MSComm1_->close();
  Timer1.setEnabled(false);
  identified_();
}

}  // namespace tarnvex::shell
