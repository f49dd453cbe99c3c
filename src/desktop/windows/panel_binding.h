#pragma once

#include <vector>

#include "desktop/panel/radio_panel.h"
#include "monitor/panel_state.h"
#include "platform/event_gate.h"
#include "shell/bc245_form.h"
#include "shell/bc895_form.h"

namespace tarnvex::desktop {

/// Binds a drawn panel to the labels of a radio's front, and its keys and knob to the form.
class PanelBinding {
 public:
  PanelBinding(RadioPanel& view, shell::Form4& form, platform::EventGate& gate);
  PanelBinding(RadioPanel& view, shell::Form2& form, platform::EventGate& gate);

  /// Binds only a display: the labels and their background.
  PanelBinding(RadioPanel& view, const monitor::PanelElements& elements,
               const platform::Label& background);

  /// Dims the display while the line isn't live.
  void follow(const link::LinkState& line);

 private:
  static void bindKnob(RadioPanel& view, shell::Form4& form, platform::EventGate& gate);
  void show(const platform::Label& element);

  RadioPanel& view_;
  std::vector<platform::Connection> connections_;
};

}  // namespace tarnvex::desktop
