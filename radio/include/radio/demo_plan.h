#pragma once

#include <string>

namespace tarnvex::radio {

/// The built-in memory as a frequency file with tags: 300 lines of channels and 1000 of ID slots,
/// with quoted fields and CR LF. `tarnvex-radio --write-plan FILE` writes it; demo/demo.tvf is that
/// file.
std::string demoPlan();

}  // namespace tarnvex::radio
