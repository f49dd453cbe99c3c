// Compares the table of rooms in ARCHITECTURE.md with the sources.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace {

namespace fs = std::filesystem;

/// What each room may include, including itself.
using Table = std::map<std::string, std::set<std::string>>;

std::string read(const fs::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

std::vector<std::string> matches(const std::string& text, const std::regex& pattern) {
  std::vector<std::string> found;
  for (std::sregex_iterator at(text.begin(), text.end(), pattern), end; at != end; ++at) {
    found.push_back((*at)[1]);
  }
  return found;
}

/// Reads rows such as "| `link` | `platform`, `files` |" below the heading "Room | May include". A
/// row may only name rows above it, so the table can't allow a circle.
Table allowed(const std::string& page) {
  Table table;
  std::istringstream lines(page.substr(page.find("| Room | May include |")));
  std::string line;
  while (std::getline(lines, line) && line.starts_with("|")) {
    const auto names = matches(line, std::regex("`([a-z]+)`"));
    for (const auto& name : names) {
      EXPECT_TRUE(name == names.front() || table.contains(name)) << line;
      table[names.front()].insert(name);
    }
  }
  return table;
}

std::vector<std::string> forbidden(const Table& table, const std::string& room,
                                   const std::string& source) {
  std::vector<std::string> found;
  for (const auto& name : matches(source, std::regex(R"(#\s*include\s*["<]([a-z]+)/)"))) {
    if (table.contains(name) && !table.at(room).contains(name)) {
      found.push_back(name);
    }
  }
  if (room != "desktop" && std::regex_search(source, std::regex(R"(#\s*include\s*["<]Q)"))) {
    found.emplace_back("Qt");
  }
  return found;
}

TEST(Rooms, IncludeOnlyWhatTheTableAllows) {
  const Table table = allowed(read(fs::path(TARNVEX_ROOT) / "ARCHITECTURE.md"));
  int files = 0;
  for (const auto& room : fs::directory_iterator(fs::path(TARNVEX_ROOT) / "src")) {
    if (!room.is_directory()) {
      continue;
    }
    const std::string name = room.path().filename();
    ASSERT_TRUE(table.contains(name)) << name << " has no row";
    for (const auto& file : fs::recursive_directory_iterator(room)) {
      if (file.is_regular_file()) {
        EXPECT_THAT(forbidden(table, name, read(file.path())), testing::IsEmpty()) << file.path();
        ++files;
      }
    }
  }
  EXPECT_GT(files, 100);
  EXPECT_THAT(forbidden(table, "link", "#include <QString>\n# include \"memory/plan_lookup.h\""),
              testing::ElementsAre("memory", "Qt"));
}

}  // namespace
