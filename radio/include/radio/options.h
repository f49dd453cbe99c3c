#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "radio/model.h"
#include "radio/wire.h"

namespace tarnvex::radio {

/// The command line of tarnvex-radio.
struct Options {
  Model model = Model::BC895XLT;
  std::string scene = "city";
  std::string mode;  ///< empty for a scan
  std::uint64_t seed = 1;
  double tempo = 1;
  bool control = false;
  bool help = false;
  std::vector<std::string> faults;  ///< lines for Faults::set()
  std::string writePlan;            ///< if not empty, write the demo plan to this file and end
  WireOptions wire;
};

/// Throws std::invalid_argument with a text for the user.
Options parseOptions(const std::vector<std::string>& arguments);

/// The text of --help.
extern const std::string_view kUsage;

/// The number, whole or decimal. Nothing for any other text.
std::optional<double> parseNumber(std::string_view text);

}  // namespace tarnvex::radio
