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

void Form4::load() {
  customSearch.load();
  keyBeep.load();
  multiscan.loadBanks();
  loadColour();
  frequencyFile_.loadLastPlan();
  memory_.layOut();
  loadLink();
  chooseFirstBanks();
  SSTab1.setTab(2);
  services_.gate.yield();
  Scantimer.setEnabled(true);
}

std::shared_ptr<QuickViewForm> Form4::openQuickView(WindowLayer& windows) {
  const auto form = std::make_shared<QuickView>(panel, services_.settings);
  windows.openQuickView(*form);
  return form;
}

/// Deliberate: only this window closes the sound input when it unloads. The BC245XLT's keeps it
/// until its destructor.
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

/// Deliberate: 0 (black) isn't accepted, and the colour is saved even after Cancel.
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
  if (const auto index = linkControls.storedRateIndex()) {
    linkControls.baudBox.setListIndex(*index);
  }
  linkControls.openStoredPort();
}

}  // namespace tarnvex::shell
