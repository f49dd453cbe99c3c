#include "platform/controls.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/table.h"

namespace tarnvex::platform {
namespace {

TEST(Controls, CheckBoxRunsItsClickOnEveryRealChange) {
  CheckBox box("Check6", "Speaker Mute");
  std::vector<bool> clicks;
  box.onClick = [&] { clicks.push_back(box.value()); };
  box.setValue(false);
  EXPECT_TRUE(clicks.empty());
  box.setValue(true);
  box.setValue(true);
  box.userClick();
  EXPECT_EQ(clicks, (std::vector{true, false}));
  box.setEnabled(false);
  box.userClick();
  EXPECT_FALSE(box.value());
  box.setValue(true);
  EXPECT_EQ(clicks.size(), 3U) << "code reaches a disabled box";
}

TEST(Controls, OptionsOfAGroupExcludeEachOther) {
  std::array<OptionButton, 3> options{OptionButton("Option1", "1", true),
                                      OptionButton("Option2", "2"), OptionButton("Option3", "3")};
  std::string clicks;
  for (auto& option : options) {
    option.onClick = [&] { clicks += option.caption(); };
  }
  groupOptions({&options[0], &options[1], &options[2]});
  const auto chosen = [&] {
    std::string all;
    for (const auto& option : options) {
      all += option.value() ? option.caption() : "";
    }
    return all;
  };
  options[0].setValue(true);
  EXPECT_EQ(clicks, "") << "it is chosen already";
  options[1].setValue(true);
  EXPECT_EQ(chosen() + clicks, "22");
  options[1].userClick();
  EXPECT_EQ(chosen() + clicks, "222") << "a user's click runs again";
  options[1].setValue(false);
  EXPECT_EQ(chosen() + clicks, "22") << "clearing runs no click";
  options[2].setVisible(false);
  options[2].userClick();
  EXPECT_EQ(chosen(), "") << "a hidden option isn't operable";
}

TEST(Controls, ComboRunsItsClickForEachChoiceWithinItsList) {
  ComboBox combo("Combo4", {"4800", "9600"});
  int clicks = 0;
  combo.onClick = [&] { ++clicks; };
  EXPECT_EQ(combo.text(), "");
  EXPECT_TRUE(combo.setListIndex(1));
  EXPECT_TRUE(combo.setListIndex(1));
  for (const int refused : {-1, 2, 32767}) {
    EXPECT_FALSE(combo.setListIndex(refused));
    combo.userChoose(refused);
  }
  EXPECT_EQ(combo.text(), "9600");
  EXPECT_EQ(clicks, 2);
  combo.setItems({"1"});
  EXPECT_EQ(combo.listIndex(), -1);
}

TEST(Controls, ListBoxKeepsItsLinesInBounds) {
  ListBox list("List1");
  std::string clicked;
  list.onClick = [&] { clicked += list.text(); };
  list.userClick(0);
  list.add("a");
  list.add("b");
  list.userClick(1);
  list.userClick(2);
  EXPECT_EQ(clicked, "b");
  list.replace(1, "B");
  list.replace(2, "C");
  list.setSelected(1, true);
  list.setSelected(2, true);
  EXPECT_EQ(list.items(), (std::vector<std::string>{"a", "B"}));
  EXPECT_TRUE(list.selected(1) && !list.selected(0) && !list.selected(2));
  EXPECT_EQ(list.item(-1) + list.item(2), "");
  list.clear();
  EXPECT_EQ(list.listIndex(), -1);
}

TEST(Controls, NotifierForgetsDisconnectedCallbacksEvenDuringANotification) {
  Notifier<> notifier;
  std::string heard;
  Connection second;
  const auto first = notifier.connect([&] {
    heard += '1';
    second = {};
  });
  second = notifier.connect([&] { heard += '2'; });
  const auto third = notifier.connect([&] { heard += '3'; });
  notifier.notify();
  EXPECT_EQ(heard, "13");
}

TEST(Controls, TableRefusesWhatLiesOutside) {
  Table table("MSFlexGrid1", 3, 2);
  int moves = 0;
  table.onCursorChanged = [&] { ++moves; };
  for (const auto& [row, col] : {std::pair{3, 0}, {-1, 0}, {0, 2}, {0, -1}}) {
    EXPECT_FALSE(table.setTextMatrix(row, col, "x"));
    EXPECT_EQ(table.textMatrix(row, col), "");
    table.userMoveTo(row, col);
  }
  EXPECT_FALSE(table.setRow(3) || table.setCol(2) || table.setRow(-1));
  EXPECT_EQ(moves, 0);
  EXPECT_TRUE(table.setRow(2) && table.setRow(2));
  EXPECT_EQ(moves, 1) << "a cursor that stays notifies nobody";
  table.setText("x");
  EXPECT_EQ(table.textMatrix(2, 1), "x");
}

}  // namespace
}  // namespace tarnvex::platform
