// The list of pictures, and what the user does for each.
#include "link/scanner_commands.h"
#include "pictures/photographer.h"
#include "sample_log/sample_log.h"

namespace tarnvex::pictures {

QWidget* Photographer::window(const QString& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == name && window->isVisible()) {
      return window;
    }
  }
  return nullptr;
}

void Photographer::tickBanks() const {
  for (int bank = 0; bank < 4; ++bank) {
    find<QAbstractButton>(qPrintable(QStringLiteral("MSBank(%1)").arg(bank)))->click();
  }
}

/// Only the widget changes, for the picture: nothing is recorded here.
void Photographer::showTicked(const char* name) const {
  auto* box = find<QAbstractButton>(name);
  const QSignalBlocker silence(box);
  box->setChecked(true);
}

QWidget* Photographer::withBanks(QWidget* dialog) {
  auto* banks = dialog->findChild<QListWidget*>("List1");
  banks->item(0)->setSelected(true);
  banks->item(2)->setSelected(true);
  return dialog;
}

void Photographer::openLockouts() const {
  program_.gate.enter([this] {
    for (const double skipped : {151.625, 154.57, 158.745}) {
      program_.link.SendCommand(tarnvex::link::command::skipFrequency(skipped));
    }
    form()->typeKey('L');
  });
}

/// The radio is quiet, so nothing is added to the sample.
void Photographer::openSampleLog() const {
  program_.receptions.stop();
  program_.receptions.clear();
  // 14 March 2026.
  constexpr std::int64_t kMidnight = 1'773'446'400'000;
  tools::writeSampleDay(program_.receptionStore, kMidnight);
  choose("mnuReceptions");
}

bool Photographer::logIsShown() {
  const QWidget* log = window("frmReceptionLog");
  const auto* rows = log == nullptr ? nullptr : log->findChild<QTableView*>("receptions");
  return rows != nullptr && rows->model()->rowCount() > 100;
}

void Photographer::closeAll() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && dynamic_cast<tarnvex::desktop::MainWindow*>(window) == nullptr) {
      window->close();
    }
  }
}

void Photographer::listShots() {
  constexpr QSize kRows(732, 440);
  constexpr QSize kPicture(720, 560);
  const auto tagged = [this](const char* tag) { return [this, tag] { return tagHolds(tag); }; };
  const auto panel = [this] { return find("panel"); };
  const auto nothing = [] {};
  const auto always = [] { return true; };
  const auto isDesk = [this] { return dynamic_cast<tarnvex::shell::Form4*>(form()) != nullptr; };
  const auto isHand = [this] { return isUpright(); };
  const auto stands = [](const char* name) { return [name] { return window(name) != nullptr; }; };
  const auto dialog = [](const char* name) { return [name] { return window(name); }; };
  const auto frame = [this](const char* control) {
    return [this, control] { return frameOf(control); };
  };
  const auto hits = [this](int count) {
    return [this, count] { return form()->hitLists.List1.count() >= count; };
  };
  const auto tabs = [this] { return find("SSTab1"); };
  const auto page = [this](Tab tab) { return [this, tab] { show(tab); }; };
  shots_ = {
      {"bc895-panel", "scene quiet\nmode MD00\nreception 1 60", tagged("Fire"), page(kOptions),
       always, panel},
      {"com-ports", "", isDesk, nothing, always, frame("Option1")},
      {"multiscan", "", isDesk, [this] { tickBanks(); }, always, frame("Option5")},
      {"recording", "", isDesk, [this] { showTicked("chkRecord"); }, always, frame("chkRecord")},
      {"custom-search", "", isDesk, nothing, always, frame("LLimit")},
      {"station-program", "", isDesk, page(kStation), always, tabs, kTableHeight},
      {"trunked-data", "", isDesk,
       [this] {
         show(kTrunked);
         form()->trunkBank.userChoose(1);
       },
       always, tabs, kTableHeight},
      {"upload", "", isDesk, [this] { choose("mnuUpload"); }, stands("frmUpload"),
       [] { return withBanks(window("frmUpload")); }},
      {"", "scene quiet\nmode MD02", isDesk,
       [this] {
         closeAll();
         show(kHits);
       },
       always, nullptr},
      {"", "reception 1 1", isDesk, nothing, hits(1), nullptr},
      {"", "reception 121 5", isDesk, nothing, hits(2), nullptr},
      {"", "reception 94 5", isDesk, nothing, hits(3), nullptr},
      {"", "reception 1 5", isDesk, nothing,
       [this] { return form()->hitLists.List1.item(0).find("Hits: 2") != std::string::npos; },
       nullptr},
      {"search-results", "scene city\nmode MD07", isDesk, nothing,
       [this] { return form()->hitLists.List2.count() > 3; }, tabs, kTableHeight},
      {"lockouts", "scene quiet\ntempo 1\nmode MD02",
       [this] { return program_.state.CurrentMode == "MD02"; }, [this] { openLockouts(); },
       stands("frmLockouts"), dialog("frmLockouts")},
      {"receptions", "", isDesk,
       [this] {
         closeAll();
         openSampleLog();
       },
       [] { return logIsShown(); }, dialog("frmReceptionLog"), 0, kRows},
      {"reception-picture", "", isDesk,
       [] { window("frmReceptionLog")->findChild<QTabWidget*>("pages")->setCurrentIndex(1); },
       [] { return logIsShown(); }, dialog("frmReceptionLog"), 0, kPicture},
      {"quick-view", "mode MD00\nreception 1 60", tagged("Fire"),
       [this] {
         closeAll();
         choose("mnuQV");
       },
       stands("QuickView"), dialog("QuickView")},
      {"bc245-panel", "become bc245\nscene quiet\nmode MD00\nreception 61 90", tagged("Airport"),
       page(kOptions), always, panel},
      {"bc245-options", "", isHand, nothing, always, frame("Check1"), 285},
      {"speed-enhancement", "", isHand, [this] { tickBanks(); }, always, frame("Option5"), 100},
      {"fleet-map", "", isHand, [this] { choose("mnuCustom"); }, stands("Form5"), dialog("Form5")},
      {"download-ids", "", isHand,
       [this] {
         closeAll();
         choose("mnuOwnloadTrunk");
       },
       stands("frmDownloadtrs"), [] { return withBanks(window("frmDownloadtrs")); }},
  };
}

void Photographer::addPages(const QString& radio, const QByteArray& first) {
  const std::array pages = {"station", "trunked", "options", "hits"};
  for (int tab = kStation; tab <= kHits; ++tab) {
    const bool begins = tab == kStation;
    shots_.push_back(
        {radio + QLatin1Char('-') + QLatin1String(pages[static_cast<std::size_t>(tab)]),
         begins ? first : QByteArray(),
         [this, radio] { return isUpright() == (radio == QLatin1String("bc245")); },
         [this, tab] { show(static_cast<Tab>(tab)); }, [] { return true; },
         [this] { return program_.windows.mainWindow(); }});
  }
}

void Photographer::addDialog(const QString& radio, const char* action, const char* name) {
  shots_.push_back({radio + QLatin1Char('-') + QLatin1String(name), "", [] { return true; },
                    [this, action] {
                      closeAll();
                      choose(action);
                    },
                    [name] { return window(name) != nullptr; }, [name] { return window(name); }});
}

void Photographer::listWindows() {
  addPages("bc895", "scene quiet\nmode MD00\nreception 1 90");
  for (const auto& [action, name] :
       {std::pair{"mnuUpload", "frmUpload"}, std::pair{"mnuDownload", "frmDownload"},
        std::pair{"mnuExport", "Form8"}, std::pair{"mnuAbout", "frmAbout"},
        std::pair{"mnuContents", "help"}, std::pair{"mnuQV", "QuickView"}}) {
    addDialog("bc895", action, name);
  }
  shots_.push_back({{},
                    "",
                    [] { return true; },
                    [] { closeAll(); },
                    [] { return window("Form4") != nullptr; },
                    nullptr});
  addPages("bc245", "become bc245\nscene quiet\nmode MD00\nreception 61 90");
  for (const auto& [action, name] :
       {std::pair{"mnuCustom", "Form5"}, std::pair{"mnuOwnloadTrunk", "frmDownloadtrs"},
        std::pair{"mnuUploadTrunk", "frmUploadtrs"}, std::pair{"mnuQV", "Form9"}}) {
    addDialog("bc245", action, name);
  }
  shots_.push_back({{},
                    "",
                    [] { return true; },
                    [] { closeAll(); },
                    [] { return window("Form2") != nullptr; },
                    nullptr});
}

}  // namespace tarnvex::pictures
