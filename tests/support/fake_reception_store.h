#pragma once

#include <map>
#include <string>
#include <utility>

#include "monitor/reception_store.h"

namespace tarnvex::test {

/// A store in memory, which also logs its calls.
class FakeReceptionStore : public monitor::ReceptionStore {
 public:
  void write(int number, const monitor::Reception& reception, bool final) override {
    rows[number] = reception;
    writes += "w" + std::to_string(number) + (final ? "! " : " ");
  }
  void thin(std::int64_t before) override { thinnedBefore = before; }
  void clear() override { rows.clear(); }
  [[nodiscard]] std::string file() const override { return path; }

  std::map<int, monitor::Reception> rows;
  /// The numbers of the writes. A final one has a "!".
  std::string writes;
  std::int64_t thinnedBefore = 0;
  std::string path;
};

}  // namespace tarnvex::test
