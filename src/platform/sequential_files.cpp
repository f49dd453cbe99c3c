#include "platform/sequential_files.h"

#include <array>
#include <utility>

#include "platform/convert.h"

namespace tarnvex::platform {
namespace {

constexpr char kQuote = '"';
/// Far more than any field of the program's files. Without the limit, a file of another kind,
/// chosen by mistake, would fill the memory.
constexpr std::size_t kLongestField = std::size_t{16} << 20;
constexpr std::size_t kLargestFile = std::size_t{64} << 20;

/// Splits a file into fields.
class FieldReader {
 public:
  explicit FieldReader(std::unique_ptr<ByteSource> source) : source_(std::move(source)) {}

  [[nodiscard]] bool atEnd() { return failed_ || (!has() && !failure_); }
  /// The last field was a quote that is never closed.
  [[nodiscard]] bool unclosed() const { return unclosed_; }

  Failure next(std::string& field) {
    if (!failed_ && has()) {
      std::string text;
      skipBlanks();
      if (has() && peek() == kQuote) {
        takeQuoted(text);
      } else {
        takeUntil(text, ",\r\n");
      }
      skipDelimiter();
      if (!failure_) {
        field = std::move(text);
        return std::nullopt;
      }
    }
    failed_ = true;
    return failure_ ? failure_ : Failure("Input past end of file");
  }

 private:
  /// Whether there is a next byte. Reads more if necessary.
  bool has() {
    if (position_ == block_.size() && !failure_) {
      block_.clear();
      position_ = 0;
      failure_ = source_->read(block_);
    }
    return !failure_ && position_ < block_.size();
  }
  [[nodiscard]] char peek() const { return block_[position_]; }

  /// Returns what it skipped.
  std::string skipBlanks() {
    std::string blanks;
    while (has() && (peek() == ' ' || peek() == '\t')) {
      blanks += block_[position_++];
    }
    return blanks;
  }

  void takeUntil(std::string& text, std::string_view ends) {
    while (has()) {
      const std::size_t end = block_.find_first_of(ends, position_);
      text.append(block_, position_, end == std::string::npos ? end : end - position_);
      position_ = end == std::string::npos ? block_.size() : end;
      if (text.size() > kLongestField) {
        failure_ = "Out of string space";
      }
      if (end != std::string::npos) {
        return;
      }
    }
  }

  /// A quote without a delimiter after it belongs to the text, since writing doesn't escape quotes.
  /// After such a quote the field ends with the line at the latest.
  void takeQuoted(std::string& text) {
    ++position_;
    takeUntil(text, std::string_view(&kQuote, 1));
    unclosed_ = !has();
    while (has() && peek() == kQuote) {
      ++position_;
      const std::string blanks = skipBlanks();
      if (!has() || isDelimiter(peek())) {
        return;
      }
      text += kQuote + blanks;
      takeUntil(text, "\"\r\n");
    }
  }

  static bool isDelimiter(char byte) { return byte == ',' || byte == '\r' || byte == '\n'; }

  void skipDelimiter() {
    if (!has() || !isDelimiter(peek())) {
      return;
    }
    const bool carriageReturn = peek() == '\r';
    ++position_;
    if (carriageReturn && has() && peek() == '\n') {
      ++position_;
    }
  }

  std::unique_ptr<ByteSource> source_;
  std::string block_;
  std::size_t position_ = 0;
  Failure failure_;
  bool failed_ = false;
  bool unclosed_ = false;
};

class TextSource : public ByteSource {
 public:
  explicit TextSource(std::string_view text) : text_(text) {}
  Failure read(std::string& bytes) override {
    bytes += std::exchange(text_, {});
    return std::nullopt;
  }

 private:
  std::string_view text_;
};

/// What must be appended to a file's content so that the next text begins a new line.
std::string_view missingEnd(std::string_view content) {
  FieldReader reader(std::make_unique<TextSource>(content));
  std::string field;
  while (!reader.atEnd() && !reader.next(field)) {
  }
  if (reader.unclosed()) {
    return "\"\r\n";
  }
  return content.empty() || content.back() == '\n' || content.back() == '\r' ? "" : "\r\n";
}

Failure readWhole(FileStore& store, const std::string& path, std::string& content) {
  std::unique_ptr<ByteSource> source;
  Failure failure = store.openForReading(path, source);
  bool more = true;
  while (!failure && more) {
    const std::size_t before = content.size();
    failure = source->read(content);
    more = content.size() > before;
    if (content.size() > kLargestFile) {
      failure = "The file is too large";
    }
  }
  return failure;
}

}  // namespace

struct SequentialFiles::OpenFile {
  std::string path;
  OpenMode mode;
  /// Only for input.
  std::optional<FieldReader> reader;
  /// Only for output and append: what isn't on the disk yet.
  std::string written;
  bool dirty = false;
  /// Why nothing more can be written.
  Failure lost;
};

void WriteField::appendTo(std::string& line) const {
  if (number_) {
    line += shortest(*number_);
  } else {
    line += kQuote;
    line += text_;
    line += kQuote;
  }
}

void appendLine(std::string& text, std::span<const WriteField> fields) {
  bool first = true;
  for (const WriteField& field : fields) {
    if (!std::exchange(first, false)) {
      text += ',';
    }
    field.appendTo(text);
  }
  text += "\r\n";
}

SequentialFiles::SequentialFiles(FileStore& store) : store_(store) {}

SequentialFiles::~SequentialFiles() = default;

SequentialFiles::OpenFile* SequentialFiles::find(int number) {
  const auto found = open_.find(number);
  return found == open_.end() ? nullptr : found->second.get();
}

Failure SequentialFiles::open(int number, const std::string& path, OpenMode mode,
                              NameCase nameCase) {
  if (find(number) != nullptr) {
    return "File already open";
  }
  auto file = std::make_unique<OpenFile>();
  file->path = nameCase == NameCase::Any ? store_.inAnyCase(path) : path;
  file->mode = mode;
  if (auto failure = prepare(*file)) {
    return failure;
  }
  open_[number] = std::move(file);
  return std::nullopt;
}

Failure SequentialFiles::prepare(OpenFile& file) {
  if (file.mode != OpenMode::Input) {
    // Opening for output creates or empties the file even if nothing is written.
    file.dirty = true;
    return store_.checkWritable(file.path);
  }
  std::unique_ptr<ByteSource> source;
  if (auto failure = store_.openForReading(file.path, source)) {
    return failure;
  }
  file.reader.emplace(std::move(source));
  return std::nullopt;
}

Failure SequentialFiles::read(int number, std::span<std::string> fields) {
  OpenFile* file = find(number);
  if (file == nullptr || !file->reader) {
    return "Bad file mode";
  }
  for (std::string& field : fields) {
    if (auto failure = file->reader->next(field)) {
      return failure;
    }
  }
  return std::nullopt;
}

bool SequentialFiles::endOfFile(int number) {
  OpenFile* file = find(number);
  return file == nullptr || !file->reader || file->reader->atEnd();
}

Failure SequentialFiles::write(int number, std::span<const WriteField> fields) {
  OpenFile* file = find(number);
  if (file == nullptr || file->reader) {
    return "Bad file mode";
  }
  if (!file->lost) {
    appendLine(file->written, fields);
    file->dirty = true;
  }
  return file->lost;
}

Failure SequentialFiles::writeText(int number, std::string_view lines) {
  OpenFile* file = find(number);
  if (file == nullptr || file->reader) {
    return "Bad file mode";
  }
  if (!file->lost) {
    file->written += lines;
    file->dirty = true;
  }
  return file->lost;
}

bool SequentialFiles::carries(std::string_view text) {
  std::string line;
  appendLine(line, std::array<WriteField, 2>{text, "next"});
  FieldReader reader(std::make_unique<TextSource>(line));
  std::string field;
  return !reader.next(field) && field == text && !reader.next(field) && field == "next";
}

Failure SequentialFiles::flush(int number) {
  OpenFile* file = find(number);
  return file == nullptr ? Failure("Bad file mode") : commit(*file);
}

Failure SequentialFiles::close(int number) {
  OpenFile* file = find(number);
  if (file == nullptr) {
    return std::nullopt;
  }
  Failure failure = commit(*file);
  open_.erase(number);
  return failure;
}

Failure SequentialFiles::commit(OpenFile& file) {
  if (!file.dirty || file.lost) {
    return file.lost;
  }
  std::string content;
  if (file.mode == OpenMode::Append && store_.exists(file.path)) {
    file.lost = readWhole(store_, file.path, content);
  }
  if (!file.lost) {
    if (!file.written.empty()) {
      content += missingEnd(content);
    }
    file.lost = store_.replace(file.path, content += file.written);
  }
  file.dirty = false;
  if (file.mode == OpenMode::Append || file.lost) {
    file.written.clear();
  }
  return file.lost;
}

Failure SequentialFiles::contentOf(const std::string& path, std::string& content) {
  content.clear();
  return readWhole(store_, path, content);
}

bool SequentialFiles::exists(const std::string& path, NameCase nameCase) {
  return store_.exists(nameCase == NameCase::Any ? store_.inAnyCase(path) : path);
}

}  // namespace tarnvex::platform
