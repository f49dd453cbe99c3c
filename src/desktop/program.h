#pragma once

#include "desktop/ports/device_slots.h"
#include "desktop/ports/ini_settings.h"
#include "desktop/ports/program_directory.h"
#include "desktop/ports/qt_common_dialog.h"
#include "desktop/ports/qt_dialogs.h"
#include "desktop/ports/qt_event_loop.h"
#include "desktop/ports/qt_serial_port.h"
#include "desktop/ports/sound_recorder.h"
#include "desktop/ports/sqlite_reception_store.h"
#include "desktop/ports/timer_driver.h"
#include "desktop/ports/wall_clock.h"
#include "desktop/windows/qt_windows.h"
#include "desktop/windows/readable_palette.h"
#include "files/backup_folder.h"
#include "files/posix_files.h"
#include "link/traffic_log.h"
#include "platform/non_copyable.h"
#include "shell/application.h"

namespace tarnvex::desktop {

/// The whole program, wired together: the machine's ports, the core and the windows. `main` creates
/// one. It needs a QApplication.
class Program : private platform::NonCopyable {
 public:
  /// `programFolder` is where the program keeps its files. `otherPorts`, if given, makes the
  /// serial ports in place of the machine's.
  explicit Program(const QString& settingsPath = IniSettings::defaultPath(),
                   const QString& programFolder = programDirectory(),
                   platform::SerialPortMaker otherPorts = {});

  ~Program() { windows.removeAll(); }

  /// Shows the splash and runs until the program ends. Returns the exit status.
  int run();
  /// The text that the user sends to the maintainers about a fault: see report.h.
  [[nodiscard]] QString report() const;

  QtEventLoop loop;
  platform::EventGate gate{loop};
  IniSettings settings;
  DeviceSlots devices{settings};
  link::TrafficLog traffic;
  /// Makes the windows' ports, with what passes there written to `traffic`.
  const platform::SerialPortMaker makePort;
  const std::string directory;
  QtDialogs dialogs{gate};
  files::FileCalls fileCalls;
  files::PosixFiles fileStore{fileCalls};
  WallClock clock;
  files::BackupFolder backups{fileCalls, clock, directory};
  platform::SharedState state;
  link::ScannerLink link{state, dialogs};
  SqliteReceptionStore receptionStore{directory, gate};
  monitor::ReceptionLog receptions{{receptionStore, state, settings, dialogs, clock}};
  TimerDriver receptionTimer{receptions.Timer1, gate};
  const ReadablePalette readablePalette;
  QtWindows windows{loop, gate, devices, settings, [this] { return report(); }};
  shell::Application application{
      {state, gate, makePort, dialogs, settings, clock, link, fileStore,
       [this] { return std::make_unique<QtCommonDialog>(gate); }, backups,
       [this] { return std::make_unique<SoundRecorder>(loop); }, receptions, directory},
      windows};

 private:
  [[nodiscard]] platform::SerialPortMaker machinePorts();
};

}  // namespace tarnvex::desktop
