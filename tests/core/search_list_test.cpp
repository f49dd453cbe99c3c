#include "search/search_list.h"

#include <gmock/gmock.h>

#include "platform/convert.h"
#include "support/world.h"

namespace tarnvex::search {
namespace {

using platform::Answer;
using test::Box;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kPath = "/program/Searchlist.txt";
const std::string kThree =
    "0,851.0125,869.9875,\"Police\"\r\n1,29,54,\"Low\"\r\n2,118,136.975,\"Air\"\r\n";
const Box kMissing{"Searchlist.txt is missing! You should re-install Tarnvex to replace this file.",
                   "Search List Not Found", 16};

/// Lines of `count` searches named n0, n1, ...
std::string many(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    text += number + ",30,40,\"n" + number + "\"\r\n";
  }
  return text;
}

/// One radio's list with its own controls. Two of them may share the world.
struct Lists {
  SearchList list;
  platform::ListBox& List3 = list.List3;
  platform::TextBox LLimit{"LLimit"};
  platform::TextBox Ulimit{"Ulimit"};

  Lists(test::World& world, const link::RadioModel& model)
      : list(model, {world.files, world.dialogs, "/program"}) {}
};

struct SearchListTest : testing::Test, test::World {
  Lists bc895{*this, link::bc895Model()};
  Lists bc245{*this, link::bc245Model()};
  std::string& file = store.files[kPath];

  void save(Lists& lists, const std::string& lower, const std::string& upper,
            const std::string& name) {
    dialogs.lines.push_back(name);
    // The poll goes on while the name is asked for.
    dialogs.whileOpen = [&] {
      lists.LLimit.setText(lower);
      lists.Ulimit.setText(upper);
    };
    lists.list.append(lists.LLimit, lists.Ulimit);
    dialogs.whileOpen = nullptr;
  }
  void remove(Lists& lists, int index, Answer answer = Answer::Yes) {
    lists.List3.setListIndex(index);
    dialogs.answers.push_back(answer);
    lists.list.removeSelected();
  }
  /// Checks that the file's number is free again, whatever has happened.
  void TearDown() override {
    EXPECT_EQ(files.open(1, "other", platform::OpenMode::Output), std::nullopt);
  }
};

TEST_F(SearchListTest, ListsTheNamesAndFindsRecords) {
  file = kThree + "7,30.5,40,\"Seven, \"\n\n";
  bc895.list.load();
  EXPECT_THAT(bc895.List3.items(), ElementsAre("Police", "Low", "Air", "Seven, "));
  const auto found = bc895.list.find(7);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->lower, 30.5);
  EXPECT_EQ(found->upper, 40);
  EXPECT_EQ(bc895.list.find(3), std::nullopt) << "by id, not by place";
  EXPECT_EQ(bc895.list.find(-1), std::nullopt);
  bc895.list.load();
  EXPECT_EQ(bc895.List3.count(), 4) << "filled afresh";
}

TEST_F(SearchListTest, SavesWithEachRadiosMask) {
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      {"851.0125", "869.9875", "851,870", "851.0125,869.9875"},
      {"29.5", "54", "30,54", "29.5,54"},
      {"0.00005", "1300.00004", "0,1300", ".0001,1300"}};
  for (const auto& [lower, upper, from895, from245] : cases) {
    for (const bool small : {false, true}) {
      file = "0,1,2,\"Old\"\r\n";
      Lists& lists = small ? bc245 : bc895;
      lists.list.load();
      save(lists, lower, upper, "A, b");
      EXPECT_EQ(file,
                std::string("0,1,2,\"Old\"\r\n1,") + (small ? from245 : from895) + ",\"A, b\"\r\n");
      EXPECT_THAT(lists.List3.items(), ElementsAre("Old", "A, b"));
    }
  }
  EXPECT_EQ(dialogs.prompts.back(), (Box{"Enter the name for this search:", "Tarnvex", 0}));
  save(bc895, "", "4x", "Last read");
  EXPECT_TRUE(file.ends_with("2,0,1300,\"Last read\"\r\n"))
      << "not numbers, so those of the last record are used; got " << file;
  save(bc895, "30", "40", "Say \"hi\"");
  EXPECT_TRUE(file.ends_with("3,30,40,\"Say \"hi\"\"\r\n")) << "a quote has no escape";
  const std::string before = file;
  save(bc895, "30", "40", "");
  EXPECT_EQ(file, before);
  EXPECT_THAT(dialogs.boxes, IsEmpty());
}

TEST_F(SearchListTest, SavesTwoHundredForTheBc245xlt) {
  file = many(199);
  bc245.list.load();
  save(bc245, "50", "60", "last");
  EXPECT_TRUE(file.ends_with("199,50,60,\"last\"\r\n"));
  const std::string full = file;
  save(bc245, "50", "60", "beyond");
  EXPECT_EQ(file, full);
  EXPECT_EQ(bc245.List3.count(), 200);
  EXPECT_THAT(dialogs.takeBoxes(),
              ElementsAre(Box{"You may only have up to 200 Custom Searches Saved.",
                              "Maximum Saved Searches Exceeded", 48}));
  bc895.list.load();
  save(bc895, "50", "60", "beyond");
  EXPECT_EQ(file, full + "200,50,60,\"beyond\"\r\n");
  EXPECT_THAT(dialogs.boxes, IsEmpty());
}

TEST_F(SearchListTest, DeletesAllWithTheNameAndRenumbersTheRest) {
  file = kThree + "9,1,2,\"Low\"\n8, 3.50 ,4.0,\"End\"";
  bc895.list.load();
  remove(bc895, 1, Answer::No);
  EXPECT_EQ(bc895.List3.count(), 5);
  remove(bc895, 3);
  EXPECT_EQ(file, "0,851.0125,869.9875,\"Police\"\r\n1,118,136.975,\"Air\"\r\n2,3.5,4,\"End\"\r\n");
  EXPECT_THAT(bc895.List3.items(), ElementsAre("Police", "Air", "End"));
  const Box asked{"Delete search: Low?", "Confirm Delete", 36};
  EXPECT_THAT(dialogs.takeBoxes(), ElementsAre(asked, asked));
  for (int left = 3; left > 0; --left) {
    remove(bc245, bc245.List3.count() > 0 ? 0 : (bc245.list.load(), 0));
  }
  EXPECT_EQ(file, "");
}

TEST_F(SearchListTest, DeletesAmongTwoHundredAndOneAndNoMore) {
  file = many(201);
  bc895.list.load();
  remove(bc895, 200);
  EXPECT_EQ(file, many(200));
  file = many(202);
  bc895.list.load();
  EXPECT_EQ(bc895.List3.count(), 202);
  dialogs.boxes.clear();
  remove(bc895, 0);
  EXPECT_EQ(file, many(202));
  EXPECT_EQ(bc895.List3.count(), 202);
  ASSERT_EQ(dialogs.boxes.size(), 2U);
  EXPECT_EQ(dialogs.boxes[1].flags, 48);
}

TEST_F(SearchListTest, MissingFileIsReportedByEveryOperation) {
  file = kThree;
  bc895.list.load();
  store.files.erase(kPath);
  bc895.list.load();
  EXPECT_EQ(bc895.list.find(0), std::nullopt);
  save(bc895, "30", "40", "New");
  remove(bc895, 0);
  EXPECT_THAT(dialogs.boxes,
              ElementsAre(kMissing, kMissing, kMissing,
                          Box{"Delete search: Police?", "Confirm Delete", 36}, kMissing));
  EXPECT_EQ(bc895.List3.count(), 3) << "the list stays";
  EXPECT_EQ(store.files.count(kPath), 0U) << "and the file isn't created";
}

TEST_F(SearchListTest, FindsTheFileInAnySpelling) {
  struct OtherSpelling : test::MemoryStore {
    std::string inAnyCase(const std::string& /*path*/) override { return "/SEARCHLIST.TXT"; }
  } disk;
  disk.files["/SEARCHLIST.TXT"] = kThree;
  platform::SequentialFiles onDisk(disk);
  SearchList list(link::bc245Model(), {onDisk, dialogs, ""});
  dialogs.lines = {"New"};
  list.append(bc245.LLimit, bc245.Ulimit);
  list.List3.setListIndex(0);
  dialogs.answers = {Answer::Yes};
  list.removeSelected();
  EXPECT_THAT(list.List3.items(), ElementsAre("Low", "Air", "New"));
  EXPECT_EQ(disk.files.size(), 1U);
}

TEST_F(SearchListTest, SkipsWhatItCannotRead) {
  const std::string garbled =
      "x,1,2,\"No id\"\r\n0,one,2,\"No limit\"\r\n40000,1,2,\"Too far\"\r\n";
  file = garbled + kThree;
  bc895.list.load();
  EXPECT_THAT(bc895.List3.items(), ElementsAre("Police", "Low", "Air"));
  EXPECT_EQ(bc895.list.find(2)->upper, 136.975);
  remove(bc895, 1);
  EXPECT_THAT(bc895.List3.items(), ElementsAre("Police", "Air"));
  for (const char* name : {"No id", "No limit", "Too far"}) {
    EXPECT_NE(file.find(name), std::string::npos) << "nobody has asked to delete it";
  }
  EXPECT_NE(file.find("\"0\",\"one\",\"2\""), std::string::npos) << "as it came";
}

TEST_F(SearchListTest, SurvivesAFileCutAnywhere) {
  for (std::size_t length = 0; length < kThree.size(); ++length) {
    SCOPED_TRACE(length);
    file = kThree.substr(0, length);
    bc245.list.load();
    // A name may be cut short. Everything before it is complete.
    const auto lines = std::count(file.begin(), file.end(), '\n');
    EXPECT_GE(bc245.List3.count(), lines);
    EXPECT_LE(bc245.List3.count(), lines + 1);
    const int kept = bc245.List3.count();
    save(bc245, "30", "40", "New");
    EXPECT_NE(file.find("\"New\""), std::string::npos);
    if (kept > 1) {
      const std::string second = bc245.List3.item(1);
      remove(bc245, 0);
      EXPECT_EQ(bc245.List3.item(0), second);
    }
  }
}

TEST_F(SearchListTest, LosesNothingWhenTheDiskFails) {
  file = kThree;
  bc895.list.load();
  store.full = true;
  save(bc895, "30", "40", "New");
  remove(bc895, 0);
  EXPECT_EQ(file, kThree);
  EXPECT_THAT(bc895.List3.items(), ElementsAre("Police", "Low", "Air"));
  store.full = false;
  store.readable = 40;
  remove(bc895, 0);
  EXPECT_EQ(file, kThree) << "a part of the file isn't taken for the whole";
  EXPECT_EQ(dialogs.boxes.back().title, "Search List") << "told";
  store.readable = std::string::npos;
  // A plan that failed to load keeps the number, so saving a search fails.
  files.open(1, kPath, platform::OpenMode::Input);
  bc895.list.load();
  save(bc895, "30", "40", "New");
  remove(bc895, 0);
  EXPECT_EQ(file, kThree);
  EXPECT_EQ(bc895.List3.count(), 3);
  EXPECT_FALSE(files.endOfFile(1)) << "and don't touch it";
  EXPECT_EQ(dialogs.boxes.back().text, "The list of searches could not be read: File already open");
  files.close(1);
}

}  // namespace
}  // namespace tarnvex::search
