#pragma once

#include <cstdio>
#include <string>

#include "radio/model.h"

namespace tarnvex::trial {

/// The table of figures, each beside its limit. A figure is printed as soon as it is known.
class Report {
 public:
  void atMost(const std::string& name, double value, double limit) {
    const bool met = value <= limit;
    allMet_ = allMet_ && met;
    std::printf("%-80s %8g  <= %-6g %s\n", name.c_str(), value, limit, met ? "" : "MISSED");
    std::fflush(stdout);
  }
  /// A line of detail about a figure that will be missed.
  static void detail(const std::string& text) { std::printf("  %s\n", text.c_str()); }
  [[nodiscard]] bool allMet() const { return allMet_; }

 private:
  bool allMet_ = true;
};

inline std::string radioName(radio::Model model) {
  return model == radio::Model::BC895XLT ? "BC895XLT" : "BC245XLT";
}

}  // namespace tarnvex::trial
