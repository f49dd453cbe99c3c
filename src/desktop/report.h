#pragma once

#include <QString>

#include "desktop/ports/device_slots.h"
#include "desktop/ports/ini_settings.h"
#include "link/traffic_log.h"

namespace tarnvex::desktop {

/// The sources of a report.
struct ReportSources {
  const DeviceSlots& devices;
  const IniSettings& settings;
  const link::TrafficLog& traffic;
  /// The state of the line in words. Empty while there is no main window.
  QString line;
};

/// The report that the user sends to the maintainers: version, system, Qt, devices, settings and
/// the last lines sent and received. It contains nothing else of the user's, and "~" in place of
/// the home folder.
QString makeReport(const ReportSources& sources);

}  // namespace tarnvex::desktop
