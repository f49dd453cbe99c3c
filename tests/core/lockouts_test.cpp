#include "search/lockouts.h"

#include <gmock/gmock.h>

#include "platform/convert.h"
#include "support/world.h"

namespace tarnvex::search {
namespace {

using test::Exchange;
using testing::ElementsAre;
using testing::IsEmpty;

struct LockoutsTest : testing::Test, test::OpenLine {
  platform::Label mode{"mode"};
  std::unique_ptr<frmLockouts> form;
  int closings = 0;
  platform::Connection closed;

  void open(const link::RadioModel& model, const std::string& inMode,
            const std::vector<Exchange>& exchanges) {
    mode.setCaption(inMode);
    form = std::make_unique<frmLockouts>(model, mode, link);
    closed = form->closed.connect([this] { ++closings; });
    radio.expect(exchanges);
    form->load();
    radio.expectSpent();
    for (int i = 0; i < form->List1.count(); ++i) {
      EXPECT_TRUE(form->List1.selected(i));
    }
    EXPECT_EQ(form->List1.listIndex(), form->List1.count() > 0 ? 0 : -1);
    radio.log.clear();
  }
  /// Presses Done. Returns what it sends.
  std::string done() {
    radio.answerAll("ERR");
    const int before = closings;
    form->Command1.userClick();
    EXPECT_EQ(closings, before + 1);
    radio.answer = nullptr;
    return radio.takeLog();
  }
};

/// A listing in one piece.
std::vector<Exchange> query(const std::string& word, const std::string& lines) {
  return {{word, lines + "END"}};
}

/// The answers to the numbered queries of a BC245XLT, including the one that ends the list.
std::vector<Exchange> numbered(const std::string& word, std::string_view mask,
                               const std::vector<std::string>& replies) {
  std::vector<Exchange> all;
  for (const std::string& reply : replies) {
    const int number = static_cast<int>(all.size()) + 1;
    all.emplace_back(word + platform::format(number, mask), reply);
  }
  return all;
}

TEST_F(LockoutsTest, Bc895FrequenciesAreRestoredAsTheyWereRead) {
  open(link::bc895Model(), "MD02", query("SS", "SS08510125\rSS 00290000\rSS00460125\r"));
  EXPECT_THAT(form->List1.items(), ElementsAre("851.0125", "29.0000", "46.0125"));
  form->List1.userSelect({true, false, true});
  EXPECT_EQ(done(), "KEY09; KEY07; KEY06H; SS08510125; SS00460125");
  form->Command2.userClick();
  EXPECT_EQ(radio.takeLog(), "");
  EXPECT_EQ(done(), "KEY09; KEY07; KEY06H") << "the skip list is emptied";

  open(link::bc895Model(), "MD03", query("SS", ""));
  EXPECT_THAT(form->List1.items(), IsEmpty());
  EXPECT_EQ(done(), "KEY09; KEY07; KEY06H");
}

TEST_F(LockoutsTest, Bc895IdsAreRestoredByTheModeAtDone) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"MD07", "MD07", "KEY09"}, {"MD08", "MD08", "KEY09"}, {"MD09", "MD09", "KEY00"},
      {"MD10", "MD10", "KEY00"}, {"MD07", "MD11", "KEY00"}, {"MD09", "MD07", "KEY09"}};
  for (const auto& [opened, atDone, back] : cases) {
    SCOPED_TRACE(std::string(opened) + " " + atDone);
    open(link::bc895Model(), opened, query("IL", "IL001234\rIL12-345\r"));
    EXPECT_THAT(form->List1.items(), ElementsAre("001234", "12-345"));
    form->List1.userSelect({false, true});
    mode.setCaption(atDone);
    EXPECT_EQ(done(), std::string("KEY07; KEY06H; ILD 001234; ILR 12-345; ") + back);
  }
  open(link::bc895Model(), "MD11", query("SS", "SS08510125\r"));
  EXPECT_EQ(done(), "KEY07; KEY06H; ILR 851.0125; KEY00")
      << "read as frequencies, given back as IDs";
  open(link::bc895Model(), "MD07", query("IL", "IL001234\r"));
  mode.setCaption("MD00");
  EXPECT_EQ(done(), "KEY09; KEY07; KEY06H; SS12340000") << "the other way round";
}

TEST_F(LockoutsTest, ReadsTheModeAfterTheKeysOnTheBc895Only) {
  for (const bool small : {false, true}) {
    const auto& model = small ? link::bc245Model() : link::bc895Model();
    state.ModelKey = small ? "BC245" : "BC895";
    small ? open(model, "MD09", {{"IL001", "IL ------"}}) : open(model, "MD07", query("IL", ""));
    radio.whileWaiting = [this] { mode.setCaption("MD12"); };
    EXPECT_EQ(done(), small ? "KEY07; KEY06H; KEY09" : "KEY07; KEY06H; KEY00");
    radio.whileWaiting = nullptr;
  }
}

TEST_F(LockoutsTest, Bc245ListsAreReadPlaceByPlace) {
  state.ModelKey = "BC245";
  open(link::bc245Model(), "MD02",
       numbered("SS", "00", {"SS 08510125", "SS00290000", "SS 00000000"}));
  EXPECT_THAT(form->List1.items(), ElementsAre("851.0125", "29.0000"));
  const std::tuple<const char*, int, const char*, int> cases[] = {{"MD04", 1, "SS 00000000", 0},
                                                                  {"MD05", 50, "SS 08510125", 50},
                                                                  {"MD09", 1, "IL ------", 0},
                                                                  {"MD09", 100, "IL 001234", 100}};
  for (const auto& [inMode, places, reply, entries] : cases) {
    const bool ids = *reply == 'I';
    open(link::bc245Model(), inMode,
         numbered(ids ? "IL" : "SS", ids ? "000" : "00",
                  std::vector<std::string>(static_cast<std::size_t>(places), reply)));
    EXPECT_EQ(form->List1.count(), entries);
  }
}

TEST_F(LockoutsTest, Bc245IdsAreRestoredByTheMode) {
  state.ModelKey = "BC245";
  for (int code = 2; code <= 20; ++code) {
    const std::string digits = platform::format(code, "00");
    SCOPED_TRACE(digits);
    const bool ids = std::string("09 10 11 12 14 15 16 17 18").find(digits) != std::string::npos;
    const bool search = std::string("09 10 14 15").find(digits) != std::string::npos;
    open(link::bc245Model(), "MD" + digits,
         ids ? numbered("IL", "000", {"IL 001234", "IL 12-345", "IL ------"})
             : numbered("SS", "00", {"SS 08510125", "SS00000000"}));
    form->List1.userSelect({true});
    EXPECT_EQ(done(), ids ? std::string("KEY07; KEY06H; ILR 001234; ILD 12-345; ") +
                                (search ? "KEY09" : "KEY00")
                          : "KEY09; KEY07; KEY06H; SS08510125");
  }
}

/// A list of which something is lost. The mode tells IDs from frequencies.
struct TornList {
  const char* mode;
  std::vector<Exchange> exchanges;
  std::vector<std::string> shown;
  bool whole;
};
/// Of a BC895XLT.
std::vector<TornList> tornListings() {
  const std::string good = "SS08510125\rSS00460125\r";
  const std::vector<std::string> all = {"851.0125", "46.0125"};
  const auto twice = [](const std::string& lines) {
    return query("SS", lines) + query("SS", lines);
  };
  return {
      {"MD02", query("SS", "SS085#0125\rSS00460125\r") + query("SS", good), all, true},
      {"MD02",
       query("SS", "SS08510125\r#\r") + query("SS", "SSx\rSS00460125\r"),
       {"46.0125"},
       false},
      {"MD07", query("IL", "IL0#1234\r") + query("IL", "IL001234\r"), {"001234"}, true},
      // A lost character at the start and in the middle of an entry, and in the closing line.
      {"MD02", query("SS", "S08510125\rSS0460125\r") + query("SS", good), all, true},
      {"MD02", {{"SS", "SS08510125\rXND"}, {"SS", good + "END"}}, all, true},
      // Another command's answer, and an unusual form, both in both listings.
      {"MD02", twice(good + "MD02\r"), all, false},
      {"MD02", twice("SS 290000\r"), {"29.0000"}, true},
      // With a blank in place of a zero, and with both.
      {"MD02", query("SS", "SS 0290000\rSS 00460125\r"), {"29.0000", "46.0125"}, true},
  };
}
/// Of a BC245XLT.
std::vector<TornList> tornAnswers() {
  const auto read = [](const char* transcript) { return test::script(transcript); };
  return {
      {"MD02",
       read("SS01 > SS08510125; SS02 > S\xD3; SS02 > SS00460125; SS03 > SS00000000"),
       {"851.0125", "46.0125"},
       true},
      {"MD02", read("SS01 > ERR; SS01 > #; SS02 > SS00460125; SS03 > SS 0"), {"46.0125"}, false},
      {"MD09",
       read("IL001 > IL 00#234; IL001 > IL; IL002 > IL 000042; IL003 > IL ------"),
       {" 000042"},
       false},
      {"MD02", read("SS01 > SS0; SS01 > SS08510125; SS02 > SS00000000"), {"851.0125"}, true},
      {"MD09", read("IL001 > IL 00123; IL001 > IL 001234; IL002 > IL ------"), {" 001234"}, true},
  };
}

TEST_F(LockoutsTest, AsksAgainForWhatCannotBeReadAndNeverWritesBackAPart) {
  const std::string help = frmLockouts(link::bc895Model(), mode, link).Label1.caption();
  for (const bool small : {false, true}) {
    state.ModelKey = small ? "BC245" : "BC895";
    for (const auto& [inMode, exchanges, shown, whole] : small ? tornAnswers() : tornListings()) {
      SCOPED_TRACE(exchanges[0].command + exchanges[0].reply());
      std::string whileReading;
      radio.whileWaiting = [&] { whileReading = form->Label1.caption(); };
      open(small ? link::bc245Model() : link::bc895Model(), inMode, exchanges);
      radio.whileWaiting = nullptr;
      EXPECT_THAT(form->List1.items(), testing::ElementsAreArray(shown));
      EXPECT_TRUE(form->Command1.enabled() && form->Command2.enabled());
      EXPECT_NE(whileReading, help);
      EXPECT_EQ(form->Label1.caption() == help, whole);
      EXPECT_EQ(done().empty(), !whole);
    }
  }
}

TEST_F(LockoutsTest, StopsReadingWhenTheUserLeaves) {
  state.ModelKey = "BC245";
  radio.whileWaiting = [this] { radio.userLeaves = radio.log.back() == "SS02"; };
  open(link::bc245Model(), "MD02", test::script("SS01 > SS08510125; SS02 > SS00460125"));
  EXPECT_EQ(form->List1.count(), 2);
  EXPECT_EQ(done(), "") << "the list wasn't read to its end";
}

TEST_F(LockoutsTest, ASilentRadioGivesAnEmptyListAndOneMessage) {
  for (const bool small : {false, true}) {
    for (const char* inMode : {"MD02", "MD09"}) {
      state.ModelKey = small ? "BC245" : "BC895";
      port->open();
      const std::string word = std::string_view(inMode) == "MD09" ? "IL" : "SS";
      const std::string number = !small ? "" : word == "IL" ? "001" : "01";
      dialogs.boxes.clear();
      open(small ? link::bc245Model() : link::bc895Model(), inMode, test::script(word + number));
      EXPECT_THAT(form->List1.items(), IsEmpty());
      EXPECT_EQ(dialogs.boxes.size(), 1U);
      EXPECT_EQ(done(), "") << "the port is closed";
    }
  }
  const int before = closings;
  form->userClose();
  EXPECT_EQ(closings, before + 1);
}

}  // namespace
}  // namespace tarnvex::search
