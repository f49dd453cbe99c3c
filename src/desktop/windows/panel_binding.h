#pragma once

#include <vector>

#include "desktop/panel/radio_panel.h"
#include "monitor/panel_state.h"
#include "platform/event_gate.h"
#include "shell/bc895_form.h"

namespace tarnvex::desktop {

/// Binds a drawn panel to the panel's labels, and its knob and keys to the form.
class PanelBinding {
 public:
  PanelBinding(RadioPanel& view, shell::Form4& form, platform::EventGate& gate);

 private:
  void show(const monitor::PanelElement& element);

  RadioPanel& view_;
  std::vector<platform::Connection> connections_;
};

}  // namespace tarnvex::desktop
