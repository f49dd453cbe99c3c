#pragma once

#include <initializer_list>
#include <string>

#include "platform/table.h"

namespace tarnvex::test {

/// The cells of tables, row by row, as the frequency file has them.
inline std::string bytesOf(std::initializer_list<const platform::Table*> tables) {
  std::string all;
  for (const platform::Table* table : tables) {
    for (int row = 1; row < table->rows(); ++row) {
      for (int col = 0; col < table->cols(); ++col) {
        all += (col == 0 ? "\"" : ",\"") + table->textMatrix(row, col) + "\"";
      }
      all += "\r\n";
    }
  }
  return all;
}

}  // namespace tarnvex::test
