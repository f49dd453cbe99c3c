#include "radio/options.h"

#include <cstdlib>
#include <functional>
#include <map>
#include <stdexcept>

#include "radio/scenes.h"

namespace tarnvex::radio {
namespace {

void demand(bool met, const std::string& otherwise) {
  if (!met) {
    throw std::invalid_argument(otherwise);
  }
}

double numberIn(std::string_view name, const std::string& text, double least, double most) {
  const auto value = parseNumber(text);
  demand(value && *value >= least && *value <= most,
         std::string(name) + ": not a valid number: " + text);
  return *value;
}

void setModel(Options& options, const std::string& text) {
  const auto model = modelNamed(text);
  demand(model.has_value(), "--model: must be bc895 or bc245, not " + text);
  options.model = *model;
}

void setScene(Options& options, const std::string& text) {
  demand(sceneNamed(text) != nullptr, "--scene: no such scene: " + text);
  options.scene = text;
}

void addFault(Options& options, const std::string& text) {
  demand(Faults().set(text), "not a fault: " + text);
  options.faults.push_back(text);
}

using Setter = std::function<void(Options&, const std::string&)>;

const std::map<std::string, Setter, std::less<>>& setters() {
  static const std::map<std::string, Setter, std::less<>> kSetters{
      {"--model", setModel},
      {"--scene", setScene},
      {"--mode", [](Options& o, const std::string& text) { o.mode = text; }},
      {"--link", [](Options& o, const std::string& text) { o.wire.link = text; }},
      {"--log", [](Options& o, const std::string& text) { o.wire.log = text; }},
      {"--fault", addFault},
      {"--stream", [](Options& o, const std::string& text) { addFault(o, "stream " + text); }},
      {"--write-plan", [](Options& o, const std::string& text) { o.writePlan = text; }},
      {"--seed",
       [](Options& o, const std::string& text) {
         o.seed = static_cast<std::uint64_t>(numberIn("--seed", text, 0, 1e15));
         o.wire.line.seed = o.seed;
       }},
      {"--tempo",
       [](Options& o, const std::string& text) {
         o.tempo = numberIn("--tempo", text, 0, kMostTempo);
       }},
      {"--baud",
       [](Options& o, const std::string& text) {
         o.wire.line.baud = static_cast<int>(numberIn("--baud", text, 0, 1e6));
       }},
      {"--think-ms",
       [](Options& o, const std::string& text) {
         o.wire.line.think =
             Instant{static_cast<std::int64_t>(numberIn("--think-ms", text, 0, 1e5) * 1e6)};
       }},
  };
  return kSetters;
}

}  // namespace

std::optional<double> parseNumber(std::string_view text) {
  const std::string copy(text);
  char* end = nullptr;
  const double value = std::strtod(copy.c_str(), &end);
  if (copy.empty() || end != copy.c_str() + copy.size()) {
    return std::nullopt;
  }
  return value;
}

Options parseOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& name = arguments[i];
    if (name == "--control") {
      options.control = true;
    } else if (name == "--any-baud") {
      options.wire.anyBaud = true;
    } else if (name == "--help") {
      options.help = true;
    } else if (const auto found = setters().find(name); found == setters().end()) {
      throw std::invalid_argument("unknown option " + name);
    } else if (++i == arguments.size()) {
      throw std::invalid_argument(name + " needs a value");
    } else {
      found->second(options, arguments[i]);
    }
  }
  return options;
}

const std::string_view kUsage =
    "Usage: tarnvex-radio [OPTION]...\n"
    "A simulated radio on a pseudo terminal. Prints \"ready PATH\" when it can be opened.\n"
    "\n"
    "  --model bc895|bc245  the radio (bc895)\n"
    "  --scene NAME         what is on the air: quiet, city, busy, day, steady, tour (city)\n"
    "  --mode MDxx          the mode to start in (MD00)\n"
    "  --tempo X            speed of the scene (1); for \"day\" only that of its clock: 1440\n"
    "                       makes the day last a minute; transmissions keep their length\n"
    "  --seed N             another random course of the scene and the faults (1)\n"
    "  --link PATH          keep a symbolic link to the terminal there\n"
    "  --baud N             line speed; 0 for no pacing (9600)\n"
    "  --any-baud           answer whatever baud rate the terminal is set to\n"
    "  --think-ms X         time from a command to its reply (3; 0 if unpaced)\n"
    "  --stream N           while the program has asked for ID lines, send one at any moment\n"
    "                       of one exchange in N, even between command and reply\n"
    "  --fault LINE         start with this fault, such as \"noise 1\" or\n"
    "                       \"extra echo every 5\"; can be given several times; \"help\" of\n"
    "                       --control lists the faults\n"
    "  --log FILE           log every line; - for standard error\n"
    "  --control            take control lines from standard input; \"help\" lists them\n"
    "  --write-plan FILE    write a plan that matches the radio's memory and end\n";

}  // namespace tarnvex::radio
