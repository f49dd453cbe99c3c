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

/// Nothing on success, otherwise the description for the user, such as "Disk full".
using Failure = std::optional<std::string>;

/// A regular file that is being read.
class ByteSource : private NonCopyable {
 public:
  virtual ~ByteSource() = default;

  /// Appends the next bytes of the file; none at its end.
  virtual Failure read(std::string& bytes) = 0;
};

/// The files of the machine, whole. Names are bytes as the file system has them; links are
/// followed. Only regular files are read or written: a folder or a device is refused at once.
class FileStore : private NonCopyable {
 public:
  virtual ~FileStore() = default;

  /// Whether there is something other than a folder under that name. Where that can't be told it is
  /// true: the file's next use says why, and nothing takes it for a new one.
  [[nodiscard]] virtual bool exists(const std::string& path) = 0;
  /// The path, with its last component as the folder spells it: as given if that exists, otherwise
  /// the first name that differs only in the case of its letters, otherwise as given.
  [[nodiscard]] virtual std::string inAnyCase(const std::string& path) = 0;
  virtual Failure openForReading(const std::string& path, std::unique_ptr<ByteSource>& source) = 0;
  /// Whether `replace` stands a chance.
  virtual Failure checkWritable(const std::string& path) = 0;
  /// Gives the file this content, all of it or, on failure, none: the old file is then as it was.
  /// Makes the file if there is none. On success the content is on the disk.
  virtual Failure replace(const std::string& path, std::string_view content) = 0;
};

/// A value of the write statement: a text, written in double quotes, or a number, written bare in
/// its shortest form. Made from either without a word. It holds no copy of the text.
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

enum class OpenMode { Input, Output, Append };

/// How a name is looked up in its folder.
enum class NameCase { Exact, Any };

/// The sequential files of the program, by file number. One for the whole program, so that a number
/// which one command leaves open is taken for the others.
///
/// A file is text of fields, separated by commas and line ends. Every operation gives its failure
/// as a description and has then no effect but the one told here.
class SequentialFiles : private NonCopyable {
 public:
  explicit SequentialFiles(FileStore& store);
  ~SequentialFiles();

  /// Opens a file under a number. A number that is taken fails with "File already open".
  Failure open(int number, const std::string& path, OpenMode mode,
               NameCase nameCase = NameCase::Exact);

  /// Reads as many fields as the span has, across line ends. A field is a text in double quotes,
  /// line ends and commas within it included, or what stands up to the next comma or line end,
  /// without the blanks before it. LF, CR LF and CR end a line, and so does the end of the file; a
  /// quote that is never closed, too, ends there. Where the fields run out ("Input past end of
  /// file") those that were reached have their new values and the others keep their old ones.
  Failure read(int number, std::span<std::string> fields);
  /// Whether there is nothing more to read under that number; also so after the file couldn't be
  /// read on, and where the number isn't open for input, so that a loop to the end always ends.
  [[nodiscard]] bool endOfFile(int number);

  /// Writes one line of fields, ended by CR LF. There is no escape for a double quote in a text.
  Failure write(int number, std::span<const WriteField> fields);
  Failure write(int number, std::initializer_list<WriteField> fields) {
    return write(number, std::span(fields.begin(), fields.size()));
  }
  /// Puts what was written on the disk. If that fails, the number stays open, but everything
  /// written is lost and writing to it fails; the file on the disk is as it was.
  Failure flush(int number);
  /// Frees the number in any case. What was written and not flushed is put on the disk, which may
  /// fail. A number that isn't open is no failure.
  Failure close(int number);

  [[nodiscard]] bool exists(const std::string& path, NameCase nameCase = NameCase::Exact);

 private:
  struct OpenFile;

  OpenFile* find(int number);
  Failure prepare(OpenFile& file);
  Failure commit(OpenFile& file);

  FileStore& store_;
  std::map<int, std::unique_ptr<OpenFile>> open_;
};

}  // namespace tarnvex::platform
