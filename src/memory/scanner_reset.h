#pragma once

#include "link/scanner_link.h"
#include "platform/dialogs.h"

namespace tarnvex::memory {

/// `mnuReset`: clears all channels of the radio, after a warning. The plan stays as it is, so an
/// upload can restore the radio. The poll goes on.
void resetScanner(platform::Dialogs& dialogs, link::ScannerLink& link);

}  // namespace tarnvex::memory
