#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "fuzz_target.h"

/// Runs the files of the given folders through the target.
int main(int count, char** arguments) {
  int files = 0;
  for (int i = 1; i < count; ++i) {
    for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
      std::ifstream file(entry.path(), std::ios::binary);
      const std::string bytes{std::istreambuf_iterator<char>(file), {}};
      std::cout << entry.path().filename() << std::endl;
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
      ++files;
    }
  }
  // A corpus that isn't found must not look like one that passes.
  return files > 0 ? 0 : 1;
}
