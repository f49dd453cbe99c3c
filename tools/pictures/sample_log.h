#pragma once

#include "monitor/reception_store.h"

namespace tarnvex::pictures {

/// Fills a log with a day of receptions, as the demo's plan would hear them on a BC895XLT. It is
/// the same day each time.
void writeSampleDay(monitor::ReceptionStore& store);

}  // namespace tarnvex::pictures
