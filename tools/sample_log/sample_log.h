#pragma once

#include "monitor/reception_store.h"

namespace tarnvex::tools {

/// Fills a log with a day of receptions, as a BC895XLT with the demo's plan would hear them. Only
/// the day's beginning, in milliseconds UTC, differs from one time to another.
void writeSampleDay(monitor::ReceptionStore& store, std::int64_t midnight);

}  // namespace tarnvex::tools
