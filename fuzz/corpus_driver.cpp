#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "fuzz_target.h"

/// Runs the target on all files of the given folders.
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
  // A missing corpus must not count as a success.
  return files > 0 ? 0 : 1;
}
