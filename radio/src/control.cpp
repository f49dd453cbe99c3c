#include "radio/control.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <sstream>
#include <system_error>
#include <vector>

#include "radio/options.h"
#include "radio/scenes.h"

namespace tarnvex::radio {
namespace {

const std::string kDone = "ok\n";

std::string refuse(std::string_view why) {
  return "error: " + std::string(why) + '\n';
}

/// The parts of a control line.
struct Request {
  Wire& wire;
  std::string_view rest;  ///< after the first word and its blank
  std::vector<std::string> arguments;
  Instant now;
  bool& quit;
};

std::vector<std::string> wordsOf(std::string_view text) {
  std::istringstream words{std::string(text)};
  return {std::istream_iterator<std::string>(words), {}};
}

std::optional<double> number(const Request& request, std::size_t index) {
  const bool there = index < request.arguments.size();
  const auto value = there ? parseNumber(request.arguments[index]) : std::nullopt;
  return value && std::isfinite(*value) ? value : std::nullopt;
}

std::string first(const Request& request) {
  return request.arguments.empty() ? "" : request.arguments[0];
}

std::string scene(Request& request) {
  return request.wire.radio().playScene(first(request)) ? kDone : refuse("no such scene");
}

std::string mode(Request& request) {
  return request.wire.radio().setMode(first(request)) ? kDone : refuse("no such mode");
}

std::string becomeModel(Request& request) {
  const auto model = modelNamed(first(request));
  if (!model) {
    return refuse("expected bc895 or bc245");
  }
  request.wire.radio().become(*model);
  return kDone;
}

/// Hands the first argument on, if it is a number from 0 to `most`.
template <class Take>
std::string withNumber(Request& request, double most, std::string_view expected, Take take) {
  const auto value = number(request, 0);
  if (!value || *value < 0 || *value > most) {
    return refuse(expected);
  }
  take(*value);
  return kDone;
}

std::string tempo(Request& request) {
  return withNumber(request, kMostTempo, "expected a number from 0 to 10000",
                    [&](double value) { request.wire.radio().setTempo(value); });
}

std::string reception(Request& request) {
  const auto channel = number(request, 0);
  const auto seconds = number(request, 1);
  const bool heard = channel && seconds && *seconds < 1e6 &&
                     request.wire.radio().receive(static_cast<int>(*channel),
                                                  static_cast<Millis>(*seconds * 1000));
  return heard ? kDone : refuse("expected a stored channel and seconds");
}

std::string talk(Request& request) {
  const auto seconds = number(request, 1);
  const bool heard =
      seconds && *seconds < 1e6 &&
      request.wire.radio().talk(first(request), static_cast<Millis>(*seconds * 1000));
  return heard ? kDone : refuse("expected an ID of a trunked bank and seconds");
}

std::string stray(Request& request) {
  request.wire.stray(request.rest, request.now);
  return kDone;
}

std::string hangUp(Request& request) {
  request.wire.hangUp();
  return kDone;
}

std::string replug(Request& request) {
  try {
    request.wire.replug(request.now);
  } catch (const std::system_error& error) {
    return refuse(error.what());
  }
  return "ready " + request.wire.path() + '\n' + kDone;
}

std::string baud(Request& request) {
  return withNumber(request, 1e6, "expected a baud rate",
                    [&](double value) { request.wire.line().setBaud(static_cast<int>(value)); });
}

std::string think(Request& request) {
  return withNumber(request, 1e5, "expected milliseconds", [&](double value) {
    request.wire.line().setThink(Instant{static_cast<std::int64_t>(value * 1e6)});
  });
}

std::string clearFaults(Request& request) {
  request.wire.line().faults().clear();
  return kDone;
}

std::string hourLine(const Radio& radio) {
  const auto hour = radio.hour();
  return hour ? "\nhour=" + std::to_string(*hour) : "";
}

std::string state(Request& request) {
  return describe(request.wire.radio().state()) +
         "scene=" + std::string(request.wire.radio().scene()) + hourLine(request.wire.radio()) +
         "\nterminal=" + request.wire.path() + '\n' + kDone;
}

std::string help(Request&) {
  return std::string(kControlHelp) + kDone;
}

std::string quit(Request& request) {
  request.quit = true;
  return kDone;
}

struct Word {
  std::string_view word;
  std::string (*act)(Request& request);
};

constexpr std::array kWords{
    Word{"scene", scene}, Word{"mode", mode},           Word{"become", becomeModel},
    Word{"tempo", tempo}, Word{"reception", reception}, Word{"talk", talk},
    Word{"stray", stray}, Word{"hangup", hangUp},       Word{"replug", replug},
    Word{"baud", baud},   Word{"think", think},         Word{"clear", clearFaults},
    Word{"state", state}, Word{"say", state},           Word{"help", help},
    Word{"quit", quit},
};

}  // namespace

std::string control(Wire& wire, std::string_view line, Instant now, bool& quit) {
  if (line.ends_with('\r')) {
    line.remove_suffix(1);
  }
  const std::size_t blank = line.find(' ');
  const std::string_view word = line.substr(0, blank);
  const std::string_view rest = blank == std::string_view::npos ? "" : line.substr(blank + 1);
  if (Faults::isFault(word)) {
    return wire.line().faults().set(line) ? kDone : refuse("invalid fault; see help");
  }
  Request request{wire, rest, wordsOf(rest), now, quit};
  const auto* const known = std::ranges::find(kWords, word, &Word::word);
  return known == kWords.end() ? refuse("unknown word; see help") : known->act(request);
}

}  // namespace tarnvex::radio
