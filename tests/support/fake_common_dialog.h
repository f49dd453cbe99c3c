#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/common_dialog.h"

namespace tarnvex::test {

/// A file dialog as it was shown.
struct ShownDialog {
  platform::FileDialogKind kind;
  std::string preset;
  std::string filter;
  std::string title;

  bool operator==(const ShownDialog&) const = default;
};

/// A user who picks files as told in advance. Each time the dialog is shown, it takes the next of
/// `choices`: a path, or nothing for Cancel. If there is none left, the test fails and the dialog
/// is cancelled. Choices left at the end fail the test, too.
class FakeCommonDialog : public platform::CommonDialog {
 public:
  FakeCommonDialog() = default;
  ~FakeCommonDialog() override {
    if (!choices.empty()) {
      ADD_FAILURE() << choices.size() << " choices of a file were not asked for";
    }
  }

  std::deque<std::optional<std::string>> choices;
  std::vector<ShownDialog> shown;
  /// Runs while the dialog is open, after the user has chosen.
  std::function<void()> whileOpen;

 protected:
  std::optional<std::string> chooseFile(platform::FileDialogKind kind) override {
    shown.push_back({kind, FileName, Filter, DialogTitle});
    if (choices.empty()) {
      ADD_FAILURE() << "unexpected file dialog, preset with \"" << FileName << '"';
      return std::nullopt;
    }
    auto choice = choices.front();
    choices.pop_front();
    if (whileOpen) {
      whileOpen();
    }
    return choice;
  }
};

}  // namespace tarnvex::test
