// The list of pictures, and what the user does for each.
#include "pictures/photographer.h"

namespace tarnvex::pictures {

namespace {

constexpr auto kNothing = [] {};
constexpr auto kAlways = [] { return true; };

auto isOpen(const char* name) {
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
      {"upload", "", isDesk, [this] { choose("mnuUpload"); }, isOpen("frmUpload"),
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
       isOpen("frmLockouts"), dialog("frmLockouts")},
      {"receptions", "", isDesk,
       [this] {
         closeAll();
         openSampleLog();
       },
       [] { return logIsShown(); }, dialog("frmReceptionLog"), 0, QSize(732, 440)},
      {"reception-picture", "", isDesk,
       [] { window("frmReceptionLog")->findChild<QTabWidget*>("pages")->setCurrentIndex(1); },
       [] { return logIsShown(); }, dialog("frmReceptionLog"), 0, QSize(720, 560)},
      {"quick-view", "mode MD00\nreception 1 60", tagged("Fire"),
       [this] {
         closeAll();
         choose("mnuQV");
       },
       isOpen("QuickView"), dialog("QuickView")},
  });
}

void Photographer::listHandHeld() {
  const auto isHand = [this] { return isUpright(); };
  add({
      {"bc245-panel", "become bc245\nscene quiet\nmode MD00\nreception 61 90", tagged("Airport"),
       page(kOptions), kAlways, whole("panel")},
      {"bc245-options", "", isHand, kNothing, kAlways, frame("Check1"), 285},
      {"speed-enhancement", "", isHand, [this] { tickBanks(); }, kAlways, frame("Option5"), 100},
      {"fleet-map", "", isHand, [this] { choose("mnuCustom"); }, isOpen("Form5"), dialog("Form5")},
      {"download-ids", "", isHand,
       [this] {
         closeAll();
         choose("mnuOwnloadTrunk");
       },
       isOpen("frmDownloadtrs"), [] { return withBanks(window("frmDownloadtrs")); }},
  });
}

}  // namespace tarnvex::pictures
