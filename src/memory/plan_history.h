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
/// cell, so nobody has to report a change; whoever edits only says where a step begins and ends.
///
/// A change outside of a step, such as a frequency that takes its normal form as the cursor passes,
/// belongs to the step before it. So undoing all steps leads back to the first one's plan, byte for
/// byte. `MemoryModified` and the name of the plan's file go back and forth with the steps.
class PlanHistory {
 public:
  /// The oldest steps go when all of them together take more. 200 replacements of a full plan fit.
  static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

  PlanHistory(platform::Table& channels, platform::Table& talkgroups, platform::SharedState& state);

  /// Everything that changes while it lives is one step. Within another one it adds nothing.
  class Step {
   public:
    explicit Step(PlanHistory& history) : history_(history) {}
    ~Step() { history_.end(); }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;
    Step(Step&&) = delete;
    Step& operator=(Step&&) = delete;

   private:
    PlanHistory& history_;
  };
  /// `name` is what the menu calls it: "Paste".
  [[nodiscard]] Step step(std::string_view name);
  /// A step of typing: it goes on with the one before it while the cursor stays in its cell.
  [[nodiscard]] Step typing(const platform::Table& table);
  /// The cursor has left the cell: the next typing is a step of its own.
  void leaveCell();

  /// The plan as it is now is in its file.
  void saved();
  [[nodiscard]] const std::string& file() const { return file_; }
  /// The plan now belongs to this file. Within a step, undoing it brings the former name back.
  void setFile(std::string path) { file_ = std::move(path); }
  /// Undo or redo has brought back another name.
  std::function<void(const std::string& path)> onFileChanged;

  /// What undo and redo would take, blank if there is nothing or a step is under way.
  [[nodiscard]] std::string undoName() const;
  [[nodiscard]] std::string redoName() const;
  /// A cell that a step has changed: where the cursor belongs after undo or redo.
  struct Place {
    platform::Table* table;
    int row;
    int col;
  };
  /// Nothing if there is no step to take, or one is under way.
  std::optional<Place> undo();
  std::optional<Place> redo();

 private:
  /// Changes in the order in which they were made, packed: see plan_history.cpp.
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
  void adoptFile(const std::string& from, const std::string& to);
  void forgetOldest();

  platform::SharedState& state_;
  std::vector<Watched> tables_;
  std::deque<Record> done_;
  std::vector<Record> undone_;
  /// Changes since the last step, outside of any.
  std::string drift_;
  std::size_t bytes_ = 0;
  std::string file_;

  int depth_ = 0;
  /// Of the step that is under way. Its record is made at its first change.
  std::string name_;
  bool modifiedBefore_ = false;
  std::string fileBefore_;
  bool recorded_ = false;
  /// The step under way types into this cell, and the last one did.
  std::optional<Place> typed_;
  std::optional<Place> visited_;
  bool replaying_ = false;
};

}  // namespace tarnvex::memory
