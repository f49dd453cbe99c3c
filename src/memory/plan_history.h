#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/notifier.h"
#include "platform/shared_state.h"
#include "platform/table.h"

namespace tarnvex::memory {

/// The edits of the plan's two tables, in steps that can be undone and redone. It watches every
/// cell, so nobody has to report a change. Code that edits only marks where a step begins and ends.
///
/// A change outside a step, such as a frequency that is normalised when the cursor passes, belongs
/// to the step before it. So undoing all steps restores the plan as it was before the first one,
/// byte for byte. `MemoryModified` and the name of the plan's file are undone and redone with the
/// steps.
class PlanHistory : private platform::NonCopyable {
 public:
  /// When all steps together take more than this, the oldest are dropped. 200 replacements of a
  /// full plan fit.
  static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

  PlanHistory(platform::Table& channels, platform::Table& talkgroups, platform::SharedState& state);

  /// Everything that changes while it exists is one step. It has no effect inside another step.
  class Step : private platform::NonCopyable {
   public:
    explicit Step(PlanHistory& history) : history_(history) {}
    ~Step() { history_.end(); }

   private:
    PlanHistory& history_;
  };
  /// `name` is what the menu calls the step, such as "Paste".
  [[nodiscard]] Step step(std::string_view name);
  /// A step for a typed key. Keys typed without leaving the cell belong to the same step.
  [[nodiscard]] Step typing(const platform::Table& table);
  /// The cursor has left the cell, so the next key begins a new step.
  void leaveCell();

  /// The current plan has been saved to its file.
  void saved();
  [[nodiscard]] const std::string& file() const { return file_; }
  /// The plan now belongs to this file. If this is set within a step, undoing the step restores the
  /// former name.
  void setFile(std::string path) { file_ = std::move(path); }
  /// Undo or redo has restored another name.
  std::function<void(const std::string& path)> onFileChanged;

  /// The names of the steps that undo and redo would take. Blank if there is none or a step is
  /// open.
  [[nodiscard]] std::string undoName() const;
  [[nodiscard]] std::string redoName() const;
  /// A cell that a step has changed. The cursor goes there after undo or redo.
  struct Place {
    platform::Table* table;
    int row;
    int col;
  };
  /// Take back the last step, or make it again. Nothing if there is no such step, or a step is
  /// open.
  std::optional<Place> undo();
  std::optional<Place> redo();

 private:
  /// One step. `changes` are packed in the order in which they were made: see plan_history.cpp.
  struct Record {
    std::string name;
    std::string changes;
    Place place{};
    bool modifiedBefore = false;
    bool modifiedAfter = false;
    std::string fileBefore;
    std::string fileAfter;
  };
  /// A table and its cells as they were when this class last looked.
  struct Watched {
    platform::Table* table;
    std::vector<std::string> cells;
    platform::Connection changed;
  };

  void watch(std::size_t index, platform::Table& table);
  void take(std::size_t index, int row, int col);
  Record& openRecord(const Place& place);
  void settleDrift();
  void dropDrift();
  void end();
  void forward(const std::string& changes);
  void backward(const std::string& changes);
  void write(std::uint32_t cell, std::string text);
  [[nodiscard]] const std::string& read(std::uint32_t cell) const;
  template <class Records>
  static Record taken(Records& from);
  template <class Records>
  Place keep(Records& to, Record record);
  void exchangeFile(std::string& left, const std::string& restored);
  void forgetOldest();

  platform::SharedState& state_;
  std::vector<Watched> tables_;
  std::deque<Record> done_;
  std::vector<Record> undone_;
  /// Changes outside any step, since the last one.
  std::string drift_;
  std::size_t bytes_ = 0;
  std::string file_;

  int depth_ = 0;
  /// State of the open step. Its record is created at its first change.
  std::string name_;
  bool modifiedBefore_ = false;
  std::string fileBefore_;
  bool recorded_ = false;
  /// The cell that the open step types into, and the one that the last step typed into.
  std::optional<Place> typed_;
  std::optional<Place> visited_;
  bool replaying_ = false;
};

}  // namespace tarnvex::memory
