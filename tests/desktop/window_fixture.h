#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QTabWidget>
#include <QTemporaryDir>
#include <stdexcept>
#include <vector>

#include "desktop/ports/qt_common_dialog.h"
#include "desktop/ports/qt_event_loop.h"
#include "desktop/ports/wall_clock.h"
#include "desktop/visible_window.h"
#include "desktop/windows/main_window.h"
#include "desktop/windows/qt_windows.h"
#include "files/backup_folder.h"
#include "files/posix_files.h"
#include "support/fake_dialogs.h"
#include "support/fake_media_control.h"
#include "support/fake_reception_store.h"
#include "support/fake_settings.h"
#include "support/scripted_port.h"

namespace tarnvex::test {

/// Everything below a main window: the machine's own files and event loop, and fakes for the rest.
class Below {
 protected:
  Below() {
    QFile list(folder.filePath("Searchlist.txt"));
    EXPECT_TRUE(list.open(QIODevice::WriteOnly));
  }

  QTemporaryDir folder;
  ScriptedRadio radio;
  FakeSettings settings;
  FakeDialogs dialogs;
  desktop::QtEventLoop loop;
  platform::EventGate gate{loop};
  desktop::DeviceSlots devices{settings};
  files::FileCalls fileCalls;
  files::PosixFiles fileStore{fileCalls};
  FakeMediaControls media;
  desktop::WallClock clock;
  files::BackupFolder backups{fileCalls, clock, folder.path().toStdString()};
  platform::SharedState state;
  link::ScannerLink link{state, dialogs};
  FakeReceptionStore receptionStore;
  monitor::ReceptionLog receptions{{receptionStore, state, settings, dialogs, clock}};
  bool ended = false;
  shell::Services services{state,
                           gate,
                           scriptedPorts(radio),
                           dialogs,
                           settings,
                           clock,
                           link,
                           fileStore,
                           [this] { return std::make_unique<desktop::QtCommonDialog>(gate); },
                           backups,
                           [this] { return media.create(); },
                           receptions,
                           folder.path().toStdString()};
  desktop::QtWindows windows{loop, gate, devices, settings};
  shell::MainFormOutside outside{[] {}, [this] { ended = true; }, windows};
};

/// A main window on the screen, with everything below it.
template <class Form>
class WindowTest : public testing::Test, protected Below {
 protected:
  WindowTest() {
    radio.answer = [](std::string_view) { return std::vector<Piece>{{"ERR\r"}}; };
    window.resize(1000, 800);
    window.show();
    form.load();
    QApplication::setActiveWindow(&window);
    loop.turn();
  }

  template <class Widget>
  Widget& find(const QString& name) {
    const auto found = window.template findChildren<Widget*>(name);
    if (found.size() != 1) {
      ADD_FAILURE() << found.size() << " widgets called " << name.toStdString();
      throw std::runtime_error("no such widget");
    }
    return *found.front();
  }
  /// The widget of a control.
  template <class Widget>
  Widget& find(const platform::Control& control) {
    return find<Widget>(QString::fromStdString(control.name()));
  }
  void openTab(int tab) { find<QTabWidget>("SSTab1").setCurrentIndex(tab); }

  Form form{services, outside};
  desktop::MainWindow window{form, gate, devices};
};

using Bc895Window = WindowTest<shell::Form4>;
using Bc245Window = WindowTest<shell::Form2>;

}  // namespace tarnvex::test
