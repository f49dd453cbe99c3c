#pragma once

#include "monitor/reception_store.h"

namespace tarnvex::pictures {

/// Fills a log with a day of receptions, as a BC895XLT with the demo's plan would hear them. It is
/// always the same day.
void writeSampleDay(monitor::ReceptionStore& store);

}  // namespace tarnvex::pictures
