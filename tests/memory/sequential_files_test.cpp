#include "platform/sequential_files.h"

#include <gmock/gmock.h>

#include <array>

#include "memory_store.h"

namespace tarnvex::test {
namespace {

using platform::OpenMode;
using platform::SequentialFiles;
using testing::Eq;
using testing::Optional;

/// All fields of a file, read one by one, each in brackets.
std::string fieldsOf(const std::string& content, std::size_t piece = 3) {
  MemoryStore store;
  store.files["f"] = content;
  store.piece = piece;
  SequentialFiles files(store);
  EXPECT_FALSE(files.open(1, "f", OpenMode::Input));
  std::string all;
  std::array<std::string, 1> field;
  while (!files.endOfFile(1)) {
    if (files.read(1, field)) {
      return all + "!";
    }
    all += "[" + field[0] + "]";
  }
  return all;
}

TEST(SequentialRead, SplitsFieldsAcrossLineEnds) {
  using namespace std::string_literals;
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"\"a\",\"b\"\r\n\"c\"\r\n", "[a][b][c]"},
      {"\"a\",\"b\"\n\"c\"\n", "[a][b][c]"},
      {"\"a\",\"b\"\r\"c\"", "[a][b][c]"},
      {"3,851.0125,869.9875,\"Fire, east\"\r\n", "[3][851.0125][869.9875][Fire, east]"},
      {"  a b  , \t\"c\" ,d", "[a b  ][c][d]"},
      {"\"one\r\ntwo\",x\r\n", "[one\r\ntwo][x]"},
      {"\"\",\"\"\r\n\r\n\n", "[][][][]"},
      {"a,,b,\r\n", "[a][][b][]"},
      // A quote within a field, as writing produces it.
      {"\"6\" pipe\",\"a \"b\" c\"\r\nx", "[6\" pipe][a \"b\" c][x]"},
      {"\"a\"b,c\r\nd", "[a\"b,c][d]"},
      {"a\"b\",c", "[a\"b\"][c]"},
      {"\"never closed,\r\n1", "[never closed,\r\n1]"},
      {"\"", "[]"},
      {"   ", "[]"},
      {"\"\0\",\0\n"s, "[\0][\0]"s},
      {"\"\xE9t\xE9 \x80\"\n", "[\xE9t\xE9 \x80]"},
  };
  for (const auto& [content, fields] : cases) {
    for (const std::size_t piece : {1, 2, 3, 65536}) {
      EXPECT_EQ(fieldsOf(content, piece), fields) << content << " by " << piece;
    }
  }
}

TEST(SequentialRead, ReadsALongLineButNotAnEndlessOne) {
  const std::string megabyte(std::size_t{1} << 20, 'x');
  EXPECT_EQ(fieldsOf(megabyte + ",b", 65536), "[" + megabyte + "][b]");
  EXPECT_EQ(fieldsOf("\"" + std::string(std::size_t{17} << 20, '\0'), 65536), "!");
}

TEST(SequentialRead, AFailingDiskEndsTheLoop) {
  for (std::size_t readable = 0; readable < 9; ++readable) {
    MemoryStore store;
    store.files["f"] = "aa,bb\r\ncc";
    store.readable = readable;
    store.piece = 1;
    SequentialFiles files(store);
    files.open(1, "f", OpenMode::Input);
    std::array<std::string, 1> field;
    platform::Failure failure;
    for (int reads = 0; reads < 4 && !files.endOfFile(1); ++reads) {
      failure = files.read(1, field);
    }
    EXPECT_THAT(failure, Optional(Eq("Device I/O error"))) << readable;
    EXPECT_TRUE(files.endOfFile(1)) << readable;
  }
}

TEST(SequentialWrite, QuotesTextsAndShortensNumbers) {
  MemoryStore store;
  SequentialFiles files(store);
  files.open(1, "f", OpenMode::Output);
  files.write(1, {3, 851.0125, 30.0, 0.5, std::string("Fire"), "", "a,\xE9"});
  EXPECT_EQ(store.files.count("f"), 0U) << "no unfinished file under its name";
  EXPECT_FALSE(files.close(1));
  EXPECT_EQ(store.files["f"], "3,851.0125,30,.5,\"Fire\",\"\",\"a,\xE9\"\r\n");
  files.open(1, "f", OpenMode::Append);
  files.write(1, {"x"});
  files.flush(1);
  files.write(1, {"y"});
  EXPECT_FALSE(files.close(1));
  EXPECT_EQ(store.files["f"], "3,851.0125,30,.5,\"Fire\",\"\",\"a,\xE9\"\r\n\"x\"\r\n\"y\"\r\n");
  files.open(1, "f", OpenMode::Output);
  files.close(1);
  EXPECT_EQ(store.files["f"], "") << "opening for output empties the file";
  files.open(1, "g", OpenMode::Append);
  files.close(1);
  EXPECT_TRUE(files.exists("g"));
}

TEST(SequentialNumbers, AreTakenUntilClosed) {
  MemoryStore store;
  store.files["f"] = "a";
  SequentialFiles files(store);
  std::array<std::string, 1> field;
  EXPECT_THAT(files.open(1, "none", OpenMode::Input), Optional(Eq("File not found")));
  EXPECT_THAT(files.open(1, "no/f", OpenMode::Output), Optional(Eq("Path not found")));
  EXPECT_FALSE(files.open(1, "f", OpenMode::Input));
  EXPECT_THAT(files.open(1, "f", OpenMode::Append), Optional(Eq("File already open")));
  EXPECT_FALSE(files.open(2, "f", OpenMode::Input));
  EXPECT_THAT(files.write(1, {"a"}), Optional(Eq("Bad file mode")));
  EXPECT_THAT(files.read(3, field), Optional(Eq("Bad file mode")));
  EXPECT_TRUE(files.endOfFile(3));
  EXPECT_FALSE(files.close(1));
  EXPECT_FALSE(files.close(1));
  EXPECT_FALSE(files.open(1, "f", OpenMode::Append));
  EXPECT_THAT(files.read(1, field), Optional(Eq("Bad file mode")));
  EXPECT_TRUE(files.endOfFile(1));
}

}  // namespace
}  // namespace tarnvex::test
