#include "memory/transfer_window.h"

#include "link/scanner_commands.h"

namespace tarnvex::memory {
namespace {

std::string letterKey(int bank) {
  return link::key::bank(link::bankLetter(bank));
}

std::string numberKey(int bank) {
  return link::key::number(bank + 1);
}

}  // namespace

const TransferTraits& bc895TransferTraits() {
  static constexpr TransferTraits kTraits = {
      .modal = false,
      .bankKey = letterKey,
      .asksSystemType = false,
  };
  return kTraits;
}

const TransferTraits& bc245TransferTraits() {
  static constexpr TransferTraits kTraits = {
      .modal = true,
      .bankKey = numberKey,
      .asksSystemType = true,
  };
  return kTraits;
}

}  // namespace tarnvex::memory
