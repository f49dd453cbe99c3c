#include "shell/bc895_form.h"

#include "platform/convert.h"

namespace tarnvex::shell {
namespace {

/// Pale yellow, like a lit display.
constexpr std::string_view kDefaultBackcolor = "8454143";

}  // namespace

Form4::Form4(const Services& services, MainFormOutside outside)
    : MainForm(services, std::move(outside), link::bc895Model()),
      multiscan({panel, services_.link, services_.gate, services_.state, services_.settings,
                 services_.dialogs, services_.clock}),
      idTransfer(transferWindow(), transferOutside()),
      keypad_(panel, keypadOutside(), [this] { requestUnload(); }),
      poll_(panel, pollOutside()) {
  Scantimer.onTick = [this] { poll_.tick(); };
  pollChanges_ = Scantimer.changed.connect([this] { poll_.begin(); });
  platform::passKeysOn({&trunkBank, &Combo2, &Combo3, &hitLists.List1, &hitLists.List2,
                        &hitLists.Command1, &customSearch.saved.List3});
  services_.link.attachBc895({MSComm1.get(), &Scantimer});
}

Form4::~Form4() {
  services_.link.detach(*MSComm1);
  services_.gate.forget(Scantimer);
  services_.gate.forget(multiscan.timer);
}

void Form4::load() {
  customSearch.load();
  keyBeep.load();
  multiscan.loadBanks();
  loadColour();
  frequencyFile_.loadLastPlan();
  memory_.layOut();
  loadLink();
  for (auto* combo : {&trunkBank, &Combo2, &Combo3}) {
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

/// This window releases the sound input itself. The BC245XLT's leaves that to its destructor.
void Form4::releaseSound() {
  MMControl1->command(platform::MediaCommand::Close);
}

void Form4::loadColour() {
  const auto colour =
      platform::toReal(services_.settings.getSetting("Colors", "Backcolor", kDefaultBackcolor));
  if (colour && *colour >= 0 && *colour <= 0xFFFFFF) {
    panel.Label1.setBackColor(static_cast<platform::Colour>(*colour));
  }
}

/// Deliberate: the colour is saved even if the user cancels; it is then the old one. Black isn't
/// accepted, since it would hide the display's segments.
void Form4::chooseDisplayColour() {
  auto& background = panel.Label1;
  const auto chosen = services_.dialogs.chooseColour(background.backColor());
  if (chosen && *chosen > 0) {
    background.setBackColor(*chosen);
  }
  services_.settings.saveSetting("Colors", "Backcolor", std::to_string(background.backColor()));
}

/// Deliberate: the COM option is set before the baud rate box. With COM 2 to 4 the poll is then
/// already on, so the box asks its question during the start. The BC245XLT's window uses the other
/// order.
void Form4::loadLink() {
  linkControls.chooseStoredPort();
  if (const auto rate = platform::toReal(linkControls.storedBaudRate())) {
    if (const auto index = platform::toInteger(*rate / model_.baudStep - 1)) {
      linkControls.baudBox.setListIndex(*index);
    }
  }
  linkControls.openStoredPort();
}

}  // namespace tarnvex::shell
