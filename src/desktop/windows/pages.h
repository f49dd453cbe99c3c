#pragma once

#include <QWidget>

#include "desktop/ports/device_slots.h"
#include "desktop/windows/binder.h"
#include "shell/bc245_form.h"
#include "shell/bc895_form.h"

/// The pages of a main window's tab strip. Each function lays a page out and binds its widgets to
/// the form's controls.
namespace tarnvex::desktop {

QWidget* makeStationPage(shell::MainForm& form, Binder& binder);
/// `trunkBank` is the box that picks the bank of the talkgroup table.
QWidget* makeTrunkedPage(shell::MainForm& form, platform::ComboBox& trunkBank, Binder& binder);
QWidget* makeSearchPage(shell::MainForm& form, Binder& binder);

/// The frames of the "Options" page.
/// `baudBox` is the box of the baud rate.
QWidget* makeLinkFrame(shell::MainForm& form, platform::ComboBox& baudBox, DeviceSlots& devices,
                       Binder& binder);
/// `muteToo` where the mute isn't among the radio's own options.
QWidget* makeSwitchesFrame(shell::MainForm& form, Binder& binder, bool muteToo);
QWidget* makeMultiscanFrame(shell::Form4& form, Binder& binder);
QWidget* makeSpeedFrame(shell::Form2& form, Binder& binder);
QWidget* makeReceiverFrame(shell::Form2& form, Binder& binder);
QWidget* makeLimitsFrame(shell::MainForm& form, Binder& binder);
/// Puts frames into columns side by side; scrolls where the room is too small.
QWidget* makeOptionsPage(const QVector<QVector<QWidget*>>& columns);

}  // namespace tarnvex::desktop
