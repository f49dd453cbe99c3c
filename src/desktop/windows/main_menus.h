#pragma once

#include <QMenu>
#include <array>
#include <span>

#include "platform/event_gate.h"
#include "shell/main_form.h"

namespace tarnvex::desktop {

/// A command of a main form as a menu's entry. Without a name it is a separator.
struct MenuCommand {
  const char* name = nullptr;
  const char* caption = nullptr;
  void (shell::MainForm::*run)() = nullptr;
  QKeySequence::StandardKey key = QKeySequence::UnknownKey;
};

/// Adds the commands to a menu, in their order. Each runs through the gate.
void addCommands(QMenu* menu, std::span<const MenuCommand> commands, shell::MainForm& form,
                 platform::EventGate& gate);

using shell::MainForm;

inline constexpr MenuCommand kSeparator{};

inline constexpr std::array kFileCommands{
    MenuCommand{"mnuNew", "&New Frequency File...", &MainForm::mnuNew, QKeySequence::New},
    MenuCommand{"mnuOpenConv", "&Open Frequency File...", &MainForm::mnuOpenConv,
                QKeySequence::Open},
    MenuCommand{"mnuSaveConv", "&Save Frequency File...", &MainForm::mnuSaveConv,
                QKeySequence::Save},
    MenuCommand{"mnuOpenBackup", "Open &Backup...", &MainForm::mnuOpenBackup},
    kSeparator,
    MenuCommand{"mnuImport", "&Import from APF...", &MainForm::mnuImport},
    MenuCommand{"mnuExport", "&Export To APF...", &MainForm::mnuExport},
    kSeparator};

inline constexpr std::array kConventionalCommands{
    MenuCommand{"mnuUpload", "&Upload To Scanner...", &MainForm::mnuUpload},
    MenuCommand{"mnuDownload", "&Download From Scanner...", &MainForm::mnuDownload}, kSeparator,
    MenuCommand{"mnuReset", "&Reset Scanner", &MainForm::mnuReset}};

inline constexpr std::array kTrunkedCommands{
    MenuCommand{"mnuUploadTrunk", "&Upload to Scanner...", &MainForm::mnuUploadTrunk},
    MenuCommand{"mnuOwnloadTrunk", "&Download From Scanner...", &MainForm::mnuOwnloadTrunk}};

inline constexpr std::array kViewCommands{
    MenuCommand{"mnuQV", "&Quickview Window", &MainForm::mnuQV},
    MenuCommand{"mnuReceptions", "&Reception Log", &MainForm::mnuReceptions}};

inline constexpr std::array kManualCommands{
    MenuCommand{"mnuContents", "&Contents", &MainForm::mnuContents},
    MenuCommand{"mnuSearch", "&Search", &MainForm::mnuSearch}, kSeparator};

inline constexpr std::array kAboutCommands{
    MenuCommand{"mnuAbout", "&About...", &MainForm::mnuAbout}};

}  // namespace tarnvex::desktop
