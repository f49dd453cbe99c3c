#include <gmock/gmock.h>

#include "shell/bc245_form.h"
#include "shell/bc895_form.h"
#include "support/world.h"

namespace tarnvex::search {
namespace {

using platform::Answer;
using test::Box;
using testing::ElementsAre;

const Box kQuestion{"Start searching now?", "Confirm Search", 36};

/// The searches of a main window, with a radio that answers everything.
template <class Form>
struct Searches : test::World {
  Form form{services, outside()};

  explicit Searches(const char* modelKey) {
    state.ModelKey = modelKey;
    store.files["/program/Searchlist.txt"] =
        "0,851.0125,869.9875,\"Police\"\r\n7,29.5,54,\"Low\"\r\n1,20,1300,\"Wide\"\r\n";
    radio.answerAll("OK", {{"MD", "MD02"}, {"SS", "SS08510125\rEND"}});
    form.load();
    radio.log.clear();
    dialogs.boxes.clear();
  }
  std::string choose(int index, Answer answer) {
    dialogs.answers.push_back(answer);
    form.customSearch.saved.List3.userClick(index);
    return radio.takeLog();
  }
};

template <class Form>
void choosesSearches(const char* modelKey, const std::string& afterNo) {
  Searches<Form> searches(modelKey);
  auto& form = searches.form;
  EXPECT_THAT(form.customSearch.saved.List3.items(), ElementsAre("Police", "Low", "Wide"));
  EXPECT_EQ(searches.choose(0, Answer::Yes), "KEY00; MD; LL08510125; LU08699875; KEY09");
  EXPECT_EQ(form.customSearch.LLimit.text() + "-" + form.customSearch.Ulimit.text(),
            "851.0125-869.9875");
  EXPECT_EQ(form.panel.mode.caption(), "MD02");
  // The third line has the id of the second place and limits outside the radio's range.
  EXPECT_EQ(searches.choose(1, Answer::No), "KEY00; MD; LL00200000; LU13000000" + afterNo);
  EXPECT_EQ(form.customSearch.LLimit.text() + "-" + form.customSearch.Ulimit.text(), "20-1300");
  EXPECT_EQ(searches.choose(2, Answer::No), "KEY00; MD" + afterNo);
  EXPECT_THAT(searches.dialogs.takeBoxes(), ElementsAre(kQuestion, kQuestion, kQuestion));

  searches.store.files.erase("/program/Searchlist.txt");
  EXPECT_EQ(searches.choose(0, Answer::Yes), "KEY00; MD; KEY09");
  EXPECT_EQ(searches.dialogs.boxes.size(), 2U);
  EXPECT_EQ(searches.dialogs.boxes[0].title, "Search List Not Found");
  EXPECT_EQ(searches.dialogs.boxes[1], kQuestion) << "asked all the same";
}

TEST(SearchChoice, SendsTheLimitsAndAsks) {
  choosesSearches<shell::Form4>("BC895", "; KEY00");
  choosesSearches<shell::Form2>("BC245", "");
}

TEST(SearchChoice, AsksOnceMoreForAModeThatCannotBeRead) {
  Searches<shell::Form4> searches("BC895");
  searches.radio.answerAll("OK", {{"MD", "#"}});
  EXPECT_EQ(searches.choose(0, Answer::Yes), "KEY00; MD; MD; LL08510125; LU08699875; KEY09");
}

TEST(SearchChoice, SendsNothingToARadioThatHasComeMeanwhile) {
  Searches<shell::Form4> searches("BC895");
  searches.dialogs.whileOpen = [&] { searches.state.ModelKey = "BC245"; };
  EXPECT_EQ(searches.choose(1, Answer::No), "KEY00; MD; LL00200000; LU13000000");
}

TEST(SearchChoice, PopsUpOverASelectedSearch) {
  Searches<shell::Form4> searches("BC895");
  auto& form = searches.form;
  int shown = 0;
  const auto connection = form.customSearch.mnuSearchlist.shown.connect([&] { ++shown; });
  form.customSearch.saved.List3.userRightPress();
  EXPECT_EQ(shown, 0);
  EXPECT_EQ(searches.dialogs.beeps, 1);
  form.customSearch.saved.List3.setListIndex(0);
  form.customSearch.saved.List3.userRightPress();
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(searches.dialogs.beeps, 1);
  EXPECT_EQ(form.customSearch.mnuSearchlist.mnuSLSearch.caption, "&Search Police");
  EXPECT_EQ(form.customSearch.mnuSearchlist.mnuSLDelete.caption, "&Delete Search");

  searches.dialogs.answers = {Answer::Yes, Answer::Yes};
  form.customSearch.mnuSearchlist.mnuSLSearch.onClick();
  EXPECT_EQ(searches.radio.takeLog(), "KEY00; MD; LL08510125; LU08699875; KEY09");
  form.customSearch.mnuSearchlist.mnuSLDelete.onClick();
  EXPECT_THAT(form.customSearch.saved.List3.items(), ElementsAre("Low", "Wide"));
  searches.dialogs.lines = {"Mine"};
  form.customSearch.Command4.userClick();
  EXPECT_THAT(form.customSearch.saved.List3.items(), ElementsAre("Low", "Wide", "Mine"));
}

TEST(SearchChoice, KeepsTheDisplaysColour) {
  Searches<shell::Form4> searches("BC895");
  auto& label = searches.form.panel.Label1;
  searches.dialogs.colours = {0x123456, std::nullopt, 0};
  for (int i = 0; i < 3; ++i) {
    searches.settings.saved.clear();
    searches.form.chooseDisplayColour();
    EXPECT_EQ(label.backColor(), 0x123456U);
    EXPECT_THAT(searches.settings.saved,
                ElementsAre(test::SavedSetting{"Colors", "Backcolor", "1193046"}));
  }
  EXPECT_THAT(searches.dialogs.presetColours, ElementsAre(8454143, 0x123456, 0x123456));
}

}  // namespace
}  // namespace tarnvex::search
