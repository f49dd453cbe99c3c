#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "platform/dialogs.h"

namespace tarnvex::test {

/// A message box as it was shown.
struct Box {
  std::string text;
  std::string title;
  int flags = 0;

  bool operator==(const Box&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Box& box) {
  return out << '"' << box.text << "\" | \"" << box.title << "\" | " << box.flags;
}

/// A user who answers message boxes as told in advance. Every box is recorded in `boxes`. A box
/// with a choice takes the next of `answers`. If there is none, or it doesn't fit the box, the test
/// fails and the box is answered with No (or Cancel). Answers left at the end fail the test. A box
/// with only OK needs no answer: compare `boxes`. Typed lines and chosen colours work the same way.
class FakeDialogs : public platform::Dialogs {
 public:
  FakeDialogs() = default;
  ~FakeDialogs() override {
    if (!answers.empty()) {
      ADD_FAILURE() << answers.size() << " answers to message boxes were not asked for";
    }
    if (!lines.empty() || !colours.empty()) {
      ADD_FAILURE() << lines.size() << " lines and " << colours.size()
                    << " colours were not asked for";
    }
  }

  platform::Answer messageBox(const std::string& text, const std::string& title,
                              platform::MessageFlags flags) override {
    const Box box{text, title, flags};
    boxes.push_back(box);
    const int buttons = static_cast<int>(flags) & 7;
    // Taken before the hook runs, since boxes that open meanwhile take the later answers.
    const platform::Answer answer = buttons == 0   ? platform::Answer::Ok
                                    : pressesEnter ? platform::Answer::Yes
                                                   : nextAnswer(box, buttons);
    if (whileOpen) {
      whileOpen();
    }
    return answer;
  }
  platform::Answer askToDestroy(const std::string& text, const std::string& title,
                                platform::MessageFlags flags) override {
    if (pressesEnter) {
      boxes.push_back({text, title, flags});
      return platform::Answer::No;
    }
    return messageBox(text, title, flags);
  }
  std::string inputBox(const std::string& prompt, const std::string& title) override {
    prompts.push_back({prompt, title, 0});
    std::string line = take(lines, std::string(), "unexpected input box: " + prompt);
    if (whileOpen) {
      whileOpen();
    }
    return line;
  }
  std::optional<platform::Colour> chooseColour(platform::Colour current) override {
    presetColours.push_back(current);
    auto colour = take(colours, std::optional<platform::Colour>(), "unexpected choice of a colour");
    if (whileOpen) {
      whileOpen();
    }
    return colour;
  }
  void beep() override { ++beeps; }
  void setBusyPointer(bool busy) override { busyPointer.push_back(busy); }

  /// The boxes shown since the last call.
  std::vector<Box> takeBoxes() { return std::exchange(boxes, {}); }

  /// A user who answers every box with Enter, which means No where Yes would destroy something.
  bool pressesEnter = false;
  std::deque<platform::Answer> answers;
  std::vector<Box> boxes;
  /// What the user types into input boxes (empty for Cancel), and the input boxes shown.
  std::deque<std::string> lines;
  std::vector<Box> prompts;
  /// The colours that the user picks (nothing for Cancel), and the preset ones.
  std::deque<std::optional<platform::Colour>> colours;
  std::vector<platform::Colour> presetColours;
  int beeps = 0;
  /// All changes of the pointer, in order.
  std::vector<bool> busyPointer;
  /// Runs while a box is open, as the poll does.
  std::function<void()> whileOpen;

 private:
  template <class Value>
  static Value take(std::deque<Value>& values, Value least, const std::string& complaint) {
    if (values.empty()) {
      ADD_FAILURE() << complaint;
      return least;
    }
    Value value = values.front();
    values.pop_front();
    return value;
  }
  platform::Answer nextAnswer(const Box& box, int buttons) {
    using platform::Answer;
    constexpr int kYesNo = 4;
    const bool yesNo = buttons == kYesNo;
    const Answer least = yesNo ? Answer::No : Answer::Cancel;
    if (answers.empty()) {
      ADD_FAILURE() << "unexpected message box: " << box;
      return least;
    }
    const Answer answer = answers.front();
    answers.pop_front();
    if ((answer == Answer::Yes || answer == Answer::No) != yesNo) {
      ADD_FAILURE() << "the answer has no button in the message box: " << box;
      return least;
    }
    return answer;
  }
};

}  // namespace tarnvex::test
