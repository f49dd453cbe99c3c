#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/non_copyable.h"

namespace tarnvex::platform {

/// Nothing on success. Otherwise a description for the user, such as "Disk full".
using Failure = std::optional<std::string>;

/// A regular file that is being read.
class ByteSource : private NonCopyable {
 public:
  virtual ~ByteSource() = default;

  /// Appends the next bytes of the file. Appends none at its end.
  virtual Failure read(std::string& bytes) = 0;
};

/// The files of the machine, read and written whole. Names are bytes, as the file system has them.
/// Links are followed. Only regular files are read or written: a folder or a device is refused at
/// once.
class FileStore : private NonCopyable {
 public:
  virtual ~FileStore() = default;

  /// Whether something other than a folder has that name. Also true if that can't be determined:
  /// the next use of the file then reports why, and nobody takes it for a new file.
  [[nodiscard]] virtual bool exists(const std::string& path) = 0;
  /// The path with its last component spelled as in the folder: unchanged if that name exists,
  /// otherwise the first name that differs only in case, otherwise unchanged.
  [[nodiscard]] virtual std::string inAnyCase(const std::string& path) = 0;
  virtual Failure openForReading(const std::string& path, std::unique_ptr<ByteSource>& source) = 0;
  /// Whether `replace` could succeed.
  virtual Failure checkWritable(const std::string& path) = 0;
  /// Replaces the content of the file, or creates it. On failure the old file is as it was. On
  /// success the content is on the disk.
  virtual Failure replace(const std::string& path, std::string_view content) = 0;
};

/// A value to write: text goes in double quotes, a number in its shortest form without quotes.
/// Converts from either implicitly. It refers to the text and doesn't copy it.
class WriteField {
 public:
  WriteField(std::string_view text) : text_(text) {}
  WriteField(const std::string& text) : text_(text) {}
  WriteField(const char* text) : text_(text) {}
  WriteField(double number) : number_(number) {}
  WriteField(int number) : number_(number) {}

  void appendTo(std::string& line) const;

 private:
  std::string_view text_;
  std::optional<double> number_;
};

/// Adds the line that the write statement makes of these fields.
void appendLine(std::string& text, std::span<const WriteField> fields);

enum class OpenMode { Input, Output, Append };

/// How to look up a name in its folder.
enum class NameCase { Exact, Any };

/// The sequential files of a main window, by file number. A number that one command leaves open is
/// taken for all other commands of that window.
///
/// A file is text made of fields, with commas and line ends between them. Each operation returns
/// its failure as a description. On failure nothing changes except as noted.
class SequentialFiles : private NonCopyable {
 public:
  explicit SequentialFiles(FileStore& store);
  ~SequentialFiles();

  /// Opens a file under a number. Fails with "File already open" if the number is taken.
  Failure open(int number, const std::string& path, OpenMode mode,
               NameCase nameCase = NameCase::Exact);

  /// Reads as many fields as the span has, across line ends. A field is either text in double
  /// quotes, which may hold line ends and commas, or everything up to the next comma or line end,
  /// without leading blanks. LF, CR LF, CR and the end of the file end a line. A quote that is
  /// never closed ends with the file. If the file has too few fields ("Input past end of file"),
  /// those that were read have their new values and the others keep their old ones.
  Failure read(int number, std::span<std::string> fields);
  /// Whether there is nothing more to read under that number. Also true after a failed read and for
  /// a number that isn't open for input, so that a loop to the end always ends.
  [[nodiscard]] bool endOfFile(int number);

  /// Writes one line of fields, ended by CR LF. A double quote within text can't be escaped: see
  /// `carries`. If the last line of the file has no end, it gets one first.
  Failure write(int number, std::span<const WriteField> fields);
  Failure write(int number, std::initializer_list<WriteField> fields) {
    return write(number, std::span(fields.begin(), fields.size()));
  }
  /// Writes lines as they are.
  Failure writeText(int number, std::string_view lines);
  /// Whether text that is written as a field reads back unchanged.
  [[nodiscard]] static bool carries(std::string_view text);
  /// Writes to the disk everything that was written to the number. On failure the number stays
  /// open, that text is lost, further writes fail, and the file on the disk is as it was.
  Failure flush(int number);
  /// Frees the number in any case. Flushes first, which may fail. Closing a number that isn't open
  /// succeeds.
  Failure close(int number);

  [[nodiscard]] bool taken(int number) const { return open_.contains(number); }
  /// The window is gone: frees all numbers, writes nothing more, and refuses everything from now
  /// on.
  void shut();

  [[nodiscard]] bool exists(const std::string& path, NameCase nameCase = NameCase::Exact);
  /// The bytes of a file, which needs no number. Files of more than 64 MB are refused.
  Failure contentOf(const std::string& path, std::string& content);

 private:
  struct OpenFile;

  OpenFile* find(int number);
  Failure prepare(OpenFile& file);
  Failure commit(OpenFile& file);

  FileStore& store_;
  std::map<int, std::unique_ptr<OpenFile>> open_;
  bool shut_ = false;
};

}  // namespace tarnvex::platform
