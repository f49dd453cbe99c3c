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
QWidget* makeTrunkedPage(shell::MainForm& form, Binder& binder);
QWidget* makeSearchPage(shell::MainForm& form, Binder& binder);

/// The frames of the "Options" page.
QWidget* makeLinkFrame(link::LinkControls& controls, link::LinkState& state, DeviceSlots& devices,
                       Binder& binder);
/// With `muteToo` the frame also has the mute box, for a radio without a frame of its own options.
QWidget* makeSwitchesFrame(shell::MainForm& form, Binder& binder, bool muteToo);
QWidget* makeMultiscanFrame(monitor::Multiscan& multiscan, Binder& binder);
QWidget* makeSpeedFrame(monitor::SpeedEnhancement& speed, Binder& binder);
QWidget* makeReceiverFrame(monitor::ReceiverOptions& options, Binder& binder);
QWidget* makeSearchFrame(search::CustomSearch& search, Binder& binder);
/// Puts frames into columns side by side. The page scrolls if there isn't enough room.
QWidget* makeOptionsPage(const QVector<QVector<QWidget*>>& columns);

}  // namespace tarnvex::desktop
