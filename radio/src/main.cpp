#include <cstdio>
#include <exception>
#include <fstream>

#include "radio/demo_plan.h"
#include "radio/event_loop.h"
#include "radio/options.h"

namespace {

using namespace tarnvex::radio;

int writePlan(const std::string& path) {
  std::ofstream file(path, std::ios::binary);
  file << demoPlan();
  file.close();
  if (file.good()) {
    return 0;
  }
  std::fprintf(stderr, "tarnvex-radio: cannot write %s\n", path.c_str());
  return 1;
}

int run(const Options& options) {
  holdSignals();
  Radio radio(options.model, options.seed);
  radio.setTempo(options.tempo);
  radio.playScene(options.scene);
  if (!options.mode.empty() && !radio.setMode(options.mode)) {
    std::fprintf(stderr, "tarnvex-radio: no such mode: %s\n", options.mode.c_str());
    return 2;
  }
  if (options.wire.line.baud > 0) {
    preferTiming();
  }
  Wire wire(radio, options.wire, clockNow());
  for (const std::string& fault : options.faults) {
    wire.line().faults().set(fault);
  }
  runWire(wire, options.control);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const Options options = parseOptions({argv + 1, argv + argc});
    if (options.help) {
      std::fputs(std::string(kUsage).c_str(), stdout);
      return 0;
    }
    return options.writePlan.empty() ? run(options) : writePlan(options.writePlan);
  } catch (const std::invalid_argument& error) {
    std::fprintf(stderr, "tarnvex-radio: %s\nTry tarnvex-radio --help.\n", error.what());
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tarnvex-radio: %s\n", error.what());
    return 1;
  }
}
