#pragma once

#include <functional>
#include <memory>

#include "memory/memory_store.h"
#include "platform/event_gate.h"
#include "platform/sequential_files.h"
#include "shell/main_form.h"
#include "shell/services.h"
#include "support/fake_backups.h"
#include "support/fake_clock.h"
#include "support/fake_common_dialog.h"
#include "support/fake_dialogs.h"
#include "support/fake_loop.h"
#include "support/fake_media_control.h"
#include "support/fake_reception_store.h"
#include "support/fake_settings.h"
#include "support/recording_windows.h"
#include "support/scripted_port.h"

namespace tarnvex::test {

/// Everything that the program's windows work with, as fakes. It must outlive a test's windows.
struct World {
  FakeLoop loop;
  platform::EventGate gate{loop};
  FakeClock clock{loop};
  platform::SharedState state;
  FakeDialogs dialogs;
  FakeSettings settings;
  MemoryStore store;
  /// For what is tested without a window; each window has its own.
  platform::SequentialFiles files{store};
  FakeBackups backups;
  FakeMediaControls media;
  ScriptedRadio radio;
  platform::SerialPortMaker makePort = scriptedPorts(radio);
  link::ScannerLink link{state, dialogs};
  FakeReceptionStore receptionStore;
  monitor::ReceptionLog receptions{{receptionStore, state, settings, dialogs, clock}};
  shell::Services services{state,
                           gate,
                           makePort,
                           dialogs,
                           settings,
                           clock,
                           link,
                           store,
                           [this] { return makeDialog(); },
                           backups,
                           [this] { return media.create(); },
                           receptions,
                           "/program"};
  RecordingWindows windows;
  int switches = 0;

  /// The file of saved searches exists and is empty, so that windows load without a message.
  World() { store.files["/program/Searchlist.txt"] = ""; }

  /// Called with each file dialog that a window gets.
  std::function<void(FakeCommonDialog&)> onDialog;
  std::unique_ptr<platform::CommonDialog> makeDialog() {
    auto dialog = std::make_unique<FakeCommonDialog>();
    if (onDialog) {
      onDialog(*dialog);
    }
    return dialog;
  }

  /// The surroundings of a window that is tested without an `Application`.
  shell::MainFormOutside outside() {
    return {[this] { ++switches; }, [this] { gate.end(); }, windows};
  }
};

/// The same with an open line, for what needs the link but no main window.
struct OpenLine : World {
  explicit OpenLine(std::unique_ptr<platform::SerialPort> line = nullptr)
      : port(line ? std::move(line) : makePort()) {
    link.attachBc895({port.get(), &Scantimer});
    link.attachBc245({port.get(), &Scantimer});
    port->open();
    radio.log.clear();
  }

  std::unique_ptr<platform::SerialPort> port;
  platform::Timer Scantimer{25};
};

}  // namespace tarnvex::test
