#include "files/backup_folder.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <filesystem>
#include <optional>
#include <set>
#include <tuple>

#include "files/writing.h"
#include "platform/convert.h"

namespace tarnvex::files {

using platform::Failure;

namespace {

constexpr std::string_view kSuffix = ".tvf";
/// Every 0 is any digit.
constexpr std::string_view kTimePicture = "0000-00-00 00-00-00";
constexpr std::size_t kNewest = 50;
constexpr int kDays = 31;
constexpr int kMostOfASecond = 1000;
/// Leaves room for the date in a name of 255 bytes.
constexpr std::size_t kLongestStem = 200;

/// A copy, by its name.
struct Copy {
  std::string name;
  /// "2026-03-01 14-05-59"
  std::string time;
  /// Counts the copies made in the same second.
  int number = 1;
};

/// Removes a number such as " (2)" from the end of a name and returns it. Returns 1 if there is
/// none.
int takeNumber(std::string_view& name) {
  const std::size_t open = name.rfind(" (");
  int number = 1;
  if (name.ends_with(')') && open != std::string_view::npos) {
    const char* end = name.data() + name.size() - 1;
    if (std::from_chars(name.data() + open + 2, end, number).ptr == end) {
      name = name.substr(0, open);
    }
  }
  return number;
}

bool isTime(std::string_view text) {
  return std::ranges::equal(text, kTimePicture, [](char found, char wanted) {
    return wanted == '0' ? platform::isDigit(found) : found == wanted;
  });
}

std::optional<Copy> copyOf(const std::string& name) {
  constexpr std::size_t kTimeSize = kTimePicture.size();
  if (!name.ends_with(kSuffix)) {
    return std::nullopt;
  }
  std::string_view rest = std::string_view(name).substr(0, name.size() - kSuffix.size());
  const int number = takeNumber(rest);
  if (rest.size() <= kTimeSize || !isTime(rest.substr(rest.size() - kTimeSize))) {
    return std::nullopt;
  }
  return Copy{name, std::string(rest.substr(rest.size() - kTimeSize)), number};
}

/// The number of days since a fixed day.
int dayOf(std::string_view date) {
  const auto number = [&](std::size_t from, std::size_t size) {
    int value = 0;
    std::from_chars(date.data() + from, date.data() + from + size, value);
    return value;
  };
  const std::chrono::year_month_day day(std::chrono::year(number(0, 4)),
                                        std::chrono::month(static_cast<unsigned>(number(5, 2))),
                                        std::chrono::day(static_cast<unsigned>(number(8, 2))));
  return static_cast<int>(std::chrono::sys_days(day).time_since_epoch().count());
}

/// The name without folder and suffix.
std::string stemOf(const std::string& path) {
  std::string name = path.substr(path.rfind('/') + 1);
  if (name.ends_with(kSuffix)) {
    name.resize(name.size() - kSuffix.size());
  }
  name.resize(std::min(name.size(), kLongestStem));
  return name.empty() ? "Untitled" : name;
}

}  // namespace

std::vector<std::string> superfluousBackups(std::vector<std::string> names,
                                            std::string_view today) {
  std::vector<Copy> copies;
  for (const std::string& name : names) {
    if (auto copy = copyOf(name)) {
      copies.push_back(std::move(*copy));
    }
  }
  std::ranges::sort(copies, [](const Copy& a, const Copy& b) {
    return std::tie(a.time, a.number) > std::tie(b.time, b.number);
  });
  std::set<int> days;
  names.clear();
  for (std::size_t i = 0; i < copies.size(); ++i) {
    const int day = dayOf(copies[i].time);
    const bool firstOfDay = days.insert(day).second;
    if (i >= kNewest && !(firstOfDay && day > dayOf(today) - kDays)) {
      names.push_back(copies[i].name);
    }
  }
  return names;
}

std::string BackupFolder::folder() {
  std::error_code error;
  std::filesystem::create_directories(folder_, error);
  return folder_;
}

Failure BackupFolder::keep(const std::string& path, std::string_view content, std::string& kept) {
  std::error_code error;
  std::filesystem::create_directories(folder_, error);
  if (error) {
    return describe(error.value());
  }
  std::string time = clock_.now();
  std::ranges::replace(time, ':', '-');
  auto failure = create(folder_ + "/" + stemOf(path) + " " + time, content, kept);
  if (!failure) {
    thin();
  }
  return failure;
}

/// Syncs the copy, since the file that replaces the original is synced, too: after a power cut, one
/// of the two must be whole.
Failure BackupFolder::create(const std::string& start, std::string_view content,
                             std::string& kept) {
  int file = -1;
  std::string name;
  for (int number = 1; file < 0 && number < kMostOfASecond; ++number) {
    name = start + (number > 1 ? " (" + std::to_string(number) + ")" : "") + std::string(kSuffix);
    file = calls_.open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (file < 0 && errno != EEXIST) {
      break;
    }
  }
  if (file < 0) {
    return describe(errno);
  }
  const bool written = writeAll(calls_, file, content) && calls_.fsync(file) == 0;
  const int error = errno;
  const bool closed = calls_.close(file) == 0;
  if (!written || !closed) {
    const int why = written ? errno : error;
    calls_.unlink(name.c_str());
    return describe(why);
  }
  kept = name;
  return std::nullopt;
}

/// A copy that can't be removed stays. The next call tries again.
void BackupFolder::thin() {
  std::vector<std::string> names;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder_, error), end; !error && entry != end;
       entry.increment(error)) {
    names.push_back(entry->path().filename().string());
  }
  for (const std::string& name : superfluousBackups(std::move(names), clock_.now())) {
    calls_.unlink((folder_ + "/" + name).c_str());
  }
}

}  // namespace tarnvex::files
