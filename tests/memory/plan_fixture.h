#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "memory/channel_memory.h"
#include "support/fake_dialogs.h"

namespace tarnvex::test {

/// The plan of a main window that has just opened. It remembers the cells' texts.
struct PlanFixture {
  explicit PlanFixture(const link::RadioModel& model)
      : plan({channels, talkgroups, tabs}, state, dialogs, model,
             [this](const std::string& command) { sent.push_back(command); }) {
    plan.layOut();
    changes(channels);
    changes(talkgroups);
  }

  /// Types keys in the table.
  static void type(platform::Table& table, std::string_view keys) {
    for (const char key : keys) {
      table.userKey(key);
    }
  }

  /// The cells that have changed since the last call, as "row,column=text", in order.
  std::vector<std::string> changes(const platform::Table& table) {
    std::vector<std::string>& old = &table == &channels ? oldChannels : oldTalkgroups;
    const auto columns = static_cast<std::size_t>(table.cols());
    old.resize(static_cast<std::size_t>(table.rows()) * columns);
    std::vector<std::string> found;
    for (int row = 0; row < table.rows(); ++row) {
      for (int col = 0; col < table.cols(); ++col) {
        std::string& seen =
            old[static_cast<std::size_t>(row) * columns + static_cast<std::size_t>(col)];
        if (seen != table.textMatrix(row, col)) {
          seen = table.textMatrix(row, col);
          found.push_back(std::to_string(row) + "," + std::to_string(col) + "=" + seen);
        }
      }
    }
    return found;
  }

  static std::pair<int, int> cursor(const platform::Table& table) {
    return {table.row(), table.col()};
  }

  platform::Table channels{"channels", 301, 8};
  platform::Table talkgroups{"talkgroups", 1001, 4};
  platform::TabStrip tabs{"tabs"};
  platform::SharedState state;
  FakeDialogs dialogs;
  std::vector<std::string> sent;
  std::vector<std::string> oldChannels;
  std::vector<std::string> oldTalkgroups;
  memory::ChannelMemory plan;
};

}  // namespace tarnvex::test
