#include "shell/bc895_form.h"

#include "platform/convert.h"

namespace tarnvex::shell {
namespace {

/// Pale yellow, as if lit from behind.
constexpr std::string_view kDefaultBackcolor = "8454143";

}  // namespace

Form4::Form4(const Services& services, MainFormOutside outside)
    : MainForm(services, std::move(outside), link::bc895Model()),
      idTransfer(transferWindow(), transferOutside()),
      multiscan_({Option5, Option6, MSBank, Timer1},
                 {panel, services.link, services.gate, services.state, services.settings,
                  services.dialogs, services.clock}),
      keypad_(panel, keypadOutside(), [this] { requestUnload(); }),
      customSearch_(model_, searchParts(panel.mode), searchOutside()),
      poll_(panel, pollControls(), pollOutside()),
      link_(
          model_,
          {*MSComm1, Scantimer, {&Option1, &Option2, &Option3, &Option4}, Combo4, Combo4, Command3},
          {services.state, services.settings, services.dialogs}) {
  setUpBankBoxes(Combo1);
  Combo4.setItems(model_.baudRates);
  // Multiscan can't be on while no bank is ticked.
  Option5.setEnabled(false);
  Scantimer.onTick = [this] { poll_.tick(); };
  platform::passKeysOn({&Combo1, &Combo2, &Combo3, &Command1, &List1, &List2, &List3});
  for (auto& box : MSBank) {
    box.passKeysOn();
  }
  services_.link.attachBc895({MSComm1.get(), &Scantimer});
}

Form4::~Form4() {
  services_.link.detach(*MSComm1);
  services_.gate.forget(Scantimer);
  services_.gate.forget(Timer1);
}

void Form4::load() {
  customSearch_.load();
  loadOptions();
  frequencyFile_.loadLastPlan();
  memory_.layOut();
  loadLink();
  for (auto* combo : {&Combo1, &Combo2, &Combo3}) {
    combo->setListIndex(0);
  }
  SSTab1.setTab(2);
  services_.gate.yield();
  Scantimer.setEnabled(true);
}

std::shared_ptr<QuickViewForm> Form4::openQuickView(WindowLayer& windows) {
  const auto form = std::make_shared<QuickView>(panel, services_.settings);
  windows.openQuickView(*form);
  return form;
}

/// This window lets the sound input go by itself; the other one leaves it to its end.
void Form4::releaseSound() {
  MMControl1->command(platform::MediaCommand::Close);
}

void Form4::loadOptions() {
  if (const auto beep =
          platform::toInteger(services_.settings.getSetting("Options", "Keybeep", "1"))) {
    chkKeyBeep.setValue(*beep != 0);
  }
  multiscan_.loadBanks();
  const auto colour =
      platform::toReal(services_.settings.getSetting("Colors", "Backcolor", kDefaultBackcolor));
  if (colour && *colour >= 0 && *colour <= 0xFFFFFF) {
    panel.Label1.setBackColor(static_cast<platform::Colour>(*colour));
  }
}

/// The colour is kept also when the user cancels: it is then the one that was there. Black, which
/// would hide the display's segments, isn't taken.
void Form4::chooseDisplayColour() {
  auto& background = panel.Label1;
  const auto chosen = services_.dialogs.chooseColour(background.backColor());
  if (chosen && *chosen > 0) {
    background.setBackColor(*chosen);
  }
  services_.settings.saveSetting("Colors", "Backcolor", std::to_string(background.backColor()));
}

/// The COM option comes before the baud rate box here: with COM 2 to 4 the poll is on by then, so
/// the box asks its question during the start. The BC245XLT's window has the other order.
void Form4::loadLink() {
  link_.chooseStoredPort();
  if (const auto rate = platform::toReal(link_.storedBaudRate())) {
    if (const auto index = platform::toInteger(*rate / model_.baudStep - 1)) {
      Combo4.setListIndex(*index);
    }
  }
  link_.openStoredPort();
}

}  // namespace tarnvex::shell
