#pragma once

#include "monitor/panel_state.h"
#include "shell/main_form.h"

namespace tarnvex::shell {

/// The main window of the BC245XLT: connects, tells the radio's name and hands over when a BC895XLT
/// answers. `Combo1` is the baud rate, `Combo2` and `Combo4` pick scanlist and bank of the trunked
/// table, `Combo3` the bank of the channel table.
class Form2 : public MainForm {
 public:
  Form2(const Services& services, MainFormOutside outside);
  ~Form2() override;
  Form2(const Form2&) = delete;
  Form2& operator=(const Form2&) = delete;
  Form2(Form2&&) = delete;
  Form2& operator=(Form2&&) = delete;

  void load() override;

  monitor::PanelBase panel;

 private:
  void tick();
  void takeIdentity(const std::string& reply);
  void showStoredBaudRate();

  std::function<void()> switchScanner_;
  link::LinkControls link_;
};

}  // namespace tarnvex::shell
