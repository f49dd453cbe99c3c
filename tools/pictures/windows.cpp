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

void Photographer::addStep(std::function<void()> act, std::function<bool()> done) {
  shots_.push_back({{}, "", [] { return true; }, std::move(act), std::move(done), nullptr});
}

/// After the small window, which hides the main one.
void Photographer::addReturn(const char* main) {
  addStep([] { closeAll(); }, [main] { return window(main) != nullptr; });
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

/// The upload asks for the type of a bank with a trunked channel, and goes on when it knows it.
void Photographer::addSystemType() {
  const auto asks = [] { return window("Form3") != nullptr; };
  addDialog("bc245", "mnuUpload", "frmUpload");
  addStep(
      [this] {
        form()->MSFlexGrid1.setTextMatrix(1, memory::ChannelRecord::Trunk, "X");
        auto* upload = window("frmUpload");
        upload->findChild<QListWidget*>("List1")->item(0)->setSelected(true);
        upload->findChild<QAbstractButton*>("Command1")->click();
      },
      asks);
  shots_.push_back({"bc245-Form3", "", asks,
                    [] {
                      // A type that also needs a frequency and a step.
                      auto* type = window("Form3")->findChild<QComboBox*>("Combo1");
                      type->setCurrentIndex(type->count() - 2);
                      emit type->activated(type->currentIndex());
                    },
                    asks, [] { return window("Form3"); }});
  addStep([] { window("Form3")->findChild<QAbstractButton*>("Command1")->click(); },
          [] { return window("frmUpload") == nullptr; });
}

/// A display server may refuse what no key of the user's has asked for.
void Photographer::addClipboard() {
  addStep(
      [this] {
        closeAll();
        choose("copyReport");
        const QString text = QGuiApplication::clipboard()->text();
        std::printf("Clipboard: %s.\n", text.contains("Tarnvex") ? "holds the report" : "refused");
        std::fflush(stdout);
      },
      [] { return true; });
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
  addSystemType();
  for (const auto& [action, name] :
       {std::pair{"mnuCustom", "Form5"}, std::pair{"mnuOwnloadTrunk", "frmDownloadtrs"},
        std::pair{"mnuUploadTrunk", "frmUploadtrs"}, std::pair{"mnuQV", "Form9"}}) {
    addDialog("bc245", action, name);
  }
  addReturn("Form2");
}

}  // namespace tarnvex::pictures
