#include "radio/wire.h"

#include <stdexcept>

namespace tarnvex::radio {

Wire::Wire(Radio& radio, const WireOptions& options, Instant now)
    : line_(radio, options.line, now), anyBaud_(options.anyBaud), link_(options.link) {
  if (!options.log.empty() && !log_.open(options.log)) {
    throw std::runtime_error("cannot write " + options.log);
  }
  openTerminal();
}

void Wire::openTerminal() {
  terminal_ = std::make_unique<PseudoTerminal>(line_.baud());
  link_.pointTo(terminal_->path());
}

bool Wire::hears() const {
  return line_.baud() == 0 || anyBaud_ || terminal_->baud() == line_.baud();
}

void Wire::readable(Instant now) {
  const std::string bytes = terminal_ ? terminal_->read() : std::string();
  if (bytes.empty()) {
    return;
  }
  log_.toRadio(bytes, now);
  if (!hears()) {
    log_.note("ignored: other baud rate", now);
    line_.dropInput();
    return;
  }
  line_.toRadio(bytes, now);
  due(now);
}

void Wire::due(Instant now) {
  const std::string bytes = line_.fromRadio(now);
  if (bytes.empty() || !terminal_) {
    return;
  }
  terminal_->write(bytes);
  log_.fromRadio(bytes, now);
}

void Wire::hangUp() {
  link_.remove();
  terminal_.reset();
  line_.dropAll();
}

void Wire::replug(Instant now) {
  hangUp();
  openTerminal();
  log_.note("plugged in", now);
}

void Wire::stray(std::string_view text, Instant now) {
  line_.stray(text, now);
  due(now);
}

}  // namespace tarnvex::radio
