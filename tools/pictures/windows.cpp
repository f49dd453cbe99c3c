// The list of whole windows: every page and dialog of both radios.
#include "pictures/photographer.h"

namespace tarnvex::pictures {

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

void Photographer::addWindow(const QString& radio, const char* name, std::function<void()> act) {
  shots_.push_back({radio + QLatin1Char('-') + QLatin1String(name), "", [] { return true; },
                    [act = std::move(act)] {
                      closeAll();
                      act();
                    },
                    [name] { return window(name) != nullptr; }, [name] { return window(name); }});
}

void Photographer::addDialog(const QString& radio, const char* action, const char* name) {
  addWindow(radio, name, [this, action] { choose(action); });
}

/// After the small window, which hides the main one.
void Photographer::addReturn(const char* main) {
  shots_.push_back({{},
                    "",
                    [] { return true; },
                    [] { closeAll(); },
                    [main] { return window(main) != nullptr; },
                    nullptr});
}

void Photographer::addFindBar() {
  shots_.push_back({"bc895-find", "", [] { return true; },
                    [this] {
                      closeAll();
                      show(kStation);
                      auto* page = find<QTabWidget>("SSTab1")->currentWidget();
                      page->findChild<QAbstractButton*>("find")->click();
                      page->findChild<QLineEdit*>("findText")->setText("fire");
                    },
                    [] { return true; }, [this] { return program_.windows.mainWindow(); }});
}

void Photographer::addLockouts() {
  shots_.push_back({"bc895-frmLockouts", "tempo 1\nmode MD02",
                    [this] { return program_.state.CurrentMode == "MD02"; },
                    [this] {
                      closeAll();
                      openLockouts();
                    },
                    [] { return window("frmLockouts") != nullptr; },
                    [] { return window("frmLockouts"); }});
}

/// A display server may refuse what no key of the user's has asked for.
void Photographer::addClipboard() {
  shots_.push_back({{},
                    "",
                    [] { return true; },
                    [this] {
                      closeAll();
                      choose("copyReport");
                      const QString text = QGuiApplication::clipboard()->text();
                      std::printf("Clipboard: %s.\n",
                                  text.contains("Tarnvex") ? "holds the report" : "refused");
                      std::fflush(stdout);
                    },
                    [] { return true; },
                    nullptr});
}

void Photographer::listWindows() {
  addPages("bc895", "scene quiet\nmode MD00\nreception 1 90");
  addFindBar();
  for (const auto& [action, name] :
       {std::pair{"mnuUpload", "frmUpload"}, std::pair{"mnuDownload", "frmDownload"},
        std::pair{"mnuOpenConv", "fileDialog"}, std::pair{"mnuExport", "Form8"},
        std::pair{"mnuImport", "fileDialog"}}) {
    addDialog("bc895", action, name);
  }
  // The import's own window comes after its file dialog.
  addWindow("bc895", "Form7", [] {});
  for (const auto& [action, name] :
       {std::pair{"mnuReset", "messageBox"}, std::pair{"mnuReceptions", "frmReceptionLog"},
        std::pair{"mnuAbout", "frmAbout"}, std::pair{"mnuContents", "help"}}) {
    addDialog("bc895", action, name);
  }
  addLockouts();
  addClipboard();
  addDialog("bc895", "mnuQV", "QuickView");
  addReturn("Form4");
  addPages("bc245", "become bc245\nscene quiet\nmode MD00\nreception 61 90");
  for (const auto& [action, name] :
       {std::pair{"mnuCustom", "Form5"}, std::pair{"mnuOwnloadTrunk", "frmDownloadtrs"},
        std::pair{"mnuUploadTrunk", "frmUploadtrs"}, std::pair{"mnuQV", "Form9"}}) {
    addDialog("bc245", action, name);
  }
  addReturn("Form2");
}

}  // namespace tarnvex::pictures
