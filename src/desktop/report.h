#pragma once

#include <QString>

#include "desktop/ports/device_slots.h"
#include "desktop/ports/ini_settings.h"
#include "link/traffic_log.h"

namespace tarnvex::desktop {

/// What a report is made of.
struct ReportSources {
  const DeviceSlots& devices;
  const IniSettings& settings;
  const link::TrafficLog& traffic;
  /// The state of the line in words, empty before there is one.
  QString line;
};

/// The report that the user sends to the maintainers: version, system, Qt, devices, settings and
/// the last lines that passed over the port. Nothing else of the user's; the home folder reads "~".
QString makeReport(const ReportSources& sources);

}  // namespace tarnvex::desktop
