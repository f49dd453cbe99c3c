#include "link/id_stream.h"

#include <utility>

#include "link/scanner_commands.h"
#include "link/scanner_link.h"

namespace tarnvex::link {

void IdStream::begin() {
  on_ = true;
  link_.SendCommand(command::kStreamIds);
}

void IdStream::end() {
  if (std::exchange(on_, false)) {
    link_.SendCommand(command::kStopIds);
  }
}

}  // namespace tarnvex::link
