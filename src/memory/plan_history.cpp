#include "memory/plan_history.h"

#include <algorithm>
#include <utility>

namespace tarnvex::memory {

using platform::Table;

namespace {

/// A change of one cell: the text between an unchanged beginning and an unchanged end was replaced.
struct Change {
  std::uint32_t cell = 0;
  std::uint32_t beginning = 0;
  std::uint32_t removed = 0;
  std::uint32_t inserted = 0;
};

/// Packs the change, the removed bytes, the inserted bytes and the length of all three, so that a
/// sequence of changes can be read from either end.
void pack(std::string& changes, std::uint32_t cell, const std::string& before,
          const std::string& after) {
  const auto same = std::ranges::mismatch(before, after);
  const auto beginning = static_cast<std::size_t>(same.in1 - before.begin());
  const std::size_t most = std::min(before.size(), after.size()) - beginning;
  std::size_t end = 0;
  while (end < most && before[before.size() - 1 - end] == after[after.size() - 1 - end]) {
    ++end;
  }
  const Change change{cell, static_cast<std::uint32_t>(beginning),
                      static_cast<std::uint32_t>(before.size() - beginning - end),
                      static_cast<std::uint32_t>(after.size() - beginning - end)};
  changes.append(reinterpret_cast<const char*>(&change), sizeof change);
  changes.append(before, beginning, change.removed);
  changes.append(after, beginning, change.inserted);
  const auto size = static_cast<std::uint32_t>(sizeof change + change.removed + change.inserted);
  changes.append(reinterpret_cast<const char*>(&size), sizeof size);
}

Change changeAt(const std::string& changes, std::size_t position) {
  Change change;
  changes.copy(reinterpret_cast<char*>(&change), sizeof change, position);
  return change;
}

std::size_t sizeBefore(const std::string& changes, std::size_t position) {
  std::uint32_t size = 0;
  changes.copy(reinterpret_cast<char*>(&size), sizeof size, position - sizeof size);
  return size + sizeof size;
}

std::size_t sizeAt(const Change& change) {
  return sizeof change + change.removed + change.inserted + sizeof(std::uint32_t);
}

/// The bit of a cell's number that says which of the two tables it is in.
constexpr std::uint32_t kTable = 0x80000000;

}  // namespace

PlanHistory::PlanHistory(Table& channels, Table& talkgroups, platform::SharedState& state)
    : state_(state), tables_(2) {
  watch(0, channels);
  watch(1, talkgroups);
}

void PlanHistory::watch(std::size_t index, Table& table) {
  Watched& watched = tables_[index];
  watched.table = &table;
  for (int row = 0; row < table.rows(); ++row) {
    for (int col = 0; col < table.cols(); ++col) {
      watched.cells.push_back(table.textMatrix(row, col));
    }
  }
  watched.changed =
      table.cellChanged.connect([this, index](int row, int col) { take(index, row, col); });
}

PlanHistory::Step PlanHistory::step(std::string_view name) {
  if (depth_++ == 0) {
    name_ = name;
    modifiedBefore_ = state_.MemoryModified;
    fileBefore_ = file_;
    recorded_ = false;
    typed_.reset();
  }
  return Step(*this);
}

PlanHistory::Step PlanHistory::typing(const Table& table) {
  if (depth_ > 0) {
    return step({});
  }
  const Place place{const_cast<Table*>(&table), table.row(), table.col()};
  const auto same = [&place](const Place& other) {
    return other.table == place.table && other.row == place.row && other.col == place.col;
  };
  const bool goesOn = visited_ && same(*visited_) && !done_.empty() && undone_.empty();
  ++depth_;
  name_ = "Typing";
  modifiedBefore_ = state_.MemoryModified;
  fileBefore_ = file_;
  recorded_ = goesOn;
  typed_ = place;
  return Step(*this);
}

void PlanHistory::leaveCell() {
  visited_.reset();
}

void PlanHistory::end() {
  if (--depth_ > 0) {
    return;
  }
  if (!recorded_ && file_ != fileBefore_) {
    // The other file holds the same plan. The steps before belong to the former one.
    openRecord({tables_[0].table, 1, 1});
  }
  if (recorded_) {
    done_.back().fileAfter = file_;
    visited_ = typed_;
    forgetOldest();
  }
  typed_.reset();
}

void PlanHistory::take(std::size_t index, int row, int col) {
  Watched& watched = tables_[index];
  const auto cell =
      static_cast<std::size_t>(row) * static_cast<std::size_t>(watched.table->cols()) +
      static_cast<std::size_t>(col);
  std::string& before = watched.cells[cell];
  const std::string& after = watched.table->textMatrix(row, col);
  if (before == after) {
    return;
  }
  // Before the first step there is nothing to undo.
  const bool counts = depth_ > 0 || !done_.empty() || !undone_.empty();
  if (!replaying_ && counts) {
    std::string& changes = depth_ > 0 ? openRecord({watched.table, row, col}).changes : drift_;
    const std::size_t size = changes.size();
    pack(changes, static_cast<std::uint32_t>(cell) | (index == 0 ? 0 : kTable), before, after);
    bytes_ += changes.size() - size;
  }
  before = after;
}

/// The record of the open step.
PlanHistory::Record& PlanHistory::openRecord(const Place& place) {
  if (std::exchange(recorded_, true)) {
    settleDrift();
    return done_.back();
  }
  settleDrift();
  for (const Record& record : undone_) {
    bytes_ -= record.changes.size() + sizeof record;
  }
  undone_.clear();
  done_.push_back({name_, {}, place, modifiedBefore_, true, fileBefore_, file_});
  bytes_ += sizeof(Record);
  return done_.back();
}

/// Makes what has changed since the last step a part of that step. Before the first step, such a
/// change can't be undone.
void PlanHistory::settleDrift() {
  if (done_.empty()) {
    bytes_ -= drift_.size();
  } else {
    done_.back().changes += drift_;
  }
  drift_.clear();
}

void PlanHistory::dropDrift() {
  backward(drift_);
  bytes_ -= drift_.size();
  drift_.clear();
}

void PlanHistory::saved() {
  // All steps before and after now lead to a plan that differs from the file.
  for (Record& record : done_) {
    record.modifiedBefore = true;
  }
  for (Record& record : undone_) {
    record.modifiedAfter = true;
  }
}

std::string PlanHistory::undoName() const {
  return done_.empty() || depth_ > 0 ? std::string() : done_.back().name;
}

std::string PlanHistory::redoName() const {
  return undone_.empty() || depth_ > 0 ? std::string() : undone_.back().name;
}

template <class Records>
PlanHistory::Record PlanHistory::taken(Records& from) {
  Record record = std::move(from.back());
  from.pop_back();
  return record;
}

/// Where the cursor belongs after the step.
template <class Records>
PlanHistory::Place PlanHistory::keep(Records& to, Record record) {
  visited_.reset();
  return to.emplace_back(std::move(record)).place;
}

std::optional<PlanHistory::Place> PlanHistory::undo() {
  if (done_.empty() || depth_ > 0) {
    return std::nullopt;
  }
  if (undone_.empty()) {
    settleDrift();
  } else {
    dropDrift();
  }
  Record record = taken(done_);
  backward(record.changes);
  record.modifiedAfter = std::exchange(state_.MemoryModified, record.modifiedBefore);
  exchangeFile(record.fileAfter, record.fileBefore);
  return keep(undone_, std::move(record));
}

std::optional<PlanHistory::Place> PlanHistory::redo() {
  if (undone_.empty() || depth_ > 0) {
    return std::nullopt;
  }
  dropDrift();
  Record record = taken(undone_);
  forward(record.changes);
  record.modifiedBefore = std::exchange(state_.MemoryModified, record.modifiedAfter);
  exchangeFile(record.fileBefore, record.fileAfter);
  return keep(done_, std::move(record));
}

/// Only a step that changed the name restores it. The name in use is kept in `left`, since the plan
/// may have been saved under another one since the step.
void PlanHistory::exchangeFile(std::string& left, const std::string& restored) {
  if (left != restored) {
    left = std::exchange(file_, restored);
    platform::run(onFileChanged, restored);
  }
}

void PlanHistory::forward(const std::string& changes) {
  for (std::size_t at = 0; at < changes.size();) {
    const Change change = changeAt(changes, at);
    std::string text = read(change.cell);
    text.replace(change.beginning, change.removed, changes, at + sizeof change + change.removed,
                 change.inserted);
    write(change.cell, std::move(text));
    at += sizeAt(change);
  }
}

void PlanHistory::backward(const std::string& changes) {
  for (std::size_t end = changes.size(); end > 0;) {
    end -= sizeBefore(changes, end);
    const Change change = changeAt(changes, end);
    std::string text = read(change.cell);
    text.replace(change.beginning, change.inserted, changes, end + sizeof change, change.removed);
    write(change.cell, std::move(text));
  }
}

const std::string& PlanHistory::read(std::uint32_t cell) const {
  return tables_[cell >= kTable ? 1 : 0].cells[cell % kTable];
}

void PlanHistory::write(std::uint32_t cell, std::string text) {
  Table& table = *tables_[cell >= kTable ? 1 : 0].table;
  const int at = static_cast<int>(cell % kTable);
  const bool before = std::exchange(replaying_, true);
  table.setTextMatrix(at / table.cols(), at % table.cols(), std::move(text));
  replaying_ = before;
}

void PlanHistory::forgetOldest() {
  while (bytes_ > kMostBytes && done_.size() > 1) {
    bytes_ -= done_.front().changes.size() + sizeof(Record);
    done_.pop_front();
  }
}

}  // namespace tarnvex::memory
