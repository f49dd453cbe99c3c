#include "memory/apf_file.h"

#include "platform/convert.h"

namespace tarnvex::memory {

std::string ApfRecord::listed() const {
  return platform::format(at(Frequency), "0.0000") + " " + at(AlphaTag);
}

}  // namespace tarnvex::memory
