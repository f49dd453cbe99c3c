// The list of pictures, and what the user does for each.
#include "pictures/photographer.h"

namespace tarnvex::pictures {

namespace {

constexpr auto kNothing = [] {};
constexpr auto kAlways = [] { return true; };

auto stands(const char* name) {
  return [name] { return Photographer::window(name) != nullptr; };
}

auto dialog(const char* name) {
  return [name] { return Photographer::window(name); };
}

}  // namespace

void Photographer::listShots() {
  listDesk();
  listHits();
  listHandHeld();
}

void Photographer::listDesk() {
  const auto isDesk = onDesk();
  add({
      {"bc895-panel", "scene quiet\nmode MD00\nreception 1 60", tagged("Fire"), page(kOptions),
       kAlways, whole("panel")},
      {"com-ports", "", isDesk, kNothing, kAlways, frame("Option1")},
      {"multiscan", "", isDesk, [this] { tickBanks(); }, kAlways, frame("Option5")},
      {"recording", "", isDesk, [this] { showTicked("chkRecord"); }, kAlways, frame("chkRecord")},
      {"custom-search", "", isDesk, kNothing, kAlways, frame("LLimit")},
      {"station-program", "", isDesk, page(kStation), kAlways, whole("SSTab1"), kTableHeight},
      {"trunked-data", "", isDesk,
       [this] {
         show(kTrunked);
         form()->trunkBank.userChoose(1);
       },
       kAlways, whole("SSTab1"), kTableHeight},
      {"upload", "", isDesk, [this] { choose("mnuUpload"); }, stands("frmUpload"),
       [] { return withBanks(window("frmUpload")); }},
      {"", "scene quiet\nmode MD02", isDesk,
       [this] {
         closeAll();
         show(kHits);
       },
       kAlways, nullptr},
  });
}

/// Receptions that fill the hit lists, and what there is to see then.
void Photographer::listHits() {
  const auto isDesk = onDesk();
  const auto hits = [this](int count) {
    return [this, count] { return form()->hitLists.List1.count() >= count; };
  };
  add({
      {"", "reception 1 1", isDesk, kNothing, hits(1), nullptr},
      {"", "reception 121 5", isDesk, kNothing, hits(2), nullptr},
      {"", "reception 94 5", isDesk, kNothing, hits(3), nullptr},
      {"", "reception 1 5", isDesk, kNothing,
       [this] { return form()->hitLists.List1.item(0).find("Hits: 2") != std::string::npos; },
       nullptr},
      {"search-results", "scene city\nmode MD07", isDesk, kNothing,
       [this] { return form()->hitLists.List2.count() > 3; }, whole("SSTab1"), kTableHeight},
      {"lockouts", "scene quiet\ntempo 1\nmode MD02",
       [this] { return program_.state.CurrentMode == "MD02"; }, [this] { openLockouts(); },
       stands("frmLockouts"), dialog("frmLockouts")},
      {"receptions", "", isDesk,
       [this] {
         closeAll();
         openSampleLog();
       },
       [] { return logIsShown(); }, dialog("frmReceptionLog")},
      {"reception-picture", "", isDesk,
       [] { window("frmReceptionLog")->findChild<QTabWidget*>("pages")->setCurrentIndex(1); },
       [] { return logIsShown(); }, dialog("frmReceptionLog")},
      {"quick-view", "mode MD00\nreception 1 60", tagged("Fire"),
       [this] {
         closeAll();
         choose("mnuQV");
       },
       stands("QuickView"), dialog("QuickView")},
  });
}

void Photographer::listHandHeld() {
  const auto isHand = [this] { return isUpright(); };
  add({
      {"bc245-panel", "become bc245\nscene quiet\nmode MD00\nreception 61 90", tagged("Airport"),
       page(kOptions), kAlways, whole("panel")},
      {"bc245-options", "", isHand, kNothing, kAlways, frame("Check1"), 285},
      {"speed-enhancement", "", isHand, [this] { tickBanks(); }, kAlways, frame("Option5"), 100},
      {"fleet-map", "", isHand, [this] { choose("mnuCustom"); }, stands("Form5"), dialog("Form5")},
      {"download-ids", "", isHand,
       [this] {
         closeAll();
         choose("mnuOwnloadTrunk");
       },
       stands("frmDownloadtrs"), [] { return withBanks(window("frmDownloadtrs")); }},
  });
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
  shots_.push_back({{}, "", kAlways, [] { closeAll(); }, stands("Form4"), nullptr});
  addPages("bc245", "become bc245\nscene quiet\nmode MD00\nreception 61 90");
  for (const auto& [action, name] :
       {std::pair{"mnuCustom", "Form5"}, std::pair{"mnuOwnloadTrunk", "frmDownloadtrs"},
        std::pair{"mnuUploadTrunk", "frmUploadtrs"}, std::pair{"mnuQV", "Form9"}}) {
    addDialog("bc245", action, name);
  }
  shots_.push_back({{}, "", kAlways, [] { closeAll(); }, stands("Form2"), nullptr});
}

}  // namespace tarnvex::pictures
