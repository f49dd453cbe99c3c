#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "radio/line_pacer.h"

namespace tarnvex::radio {

/// Writes each line of both directions, with the seconds since the first one:
///     0.016604 > MD<CR>
///     0.031225 < MD00<CR>
/// '>' goes to the radio. Unprintable bytes are shown as "<FE>".
class LineLog {
 public:
  /// "-" is standard error. False if the file can't be written.
  bool open(const std::string& path);
  [[nodiscard]] bool isOpen() const { return file_ != nullptr; }

  /// Take any bytes. A line is written with the time at which its CR came.
  void toRadio(std::string_view bytes, Instant now) { add('>', toRadio_, bytes, now); }
  void fromRadio(std::string_view bytes, Instant now) { add('<', fromRadio_, bytes, now); }
  void note(std::string_view text, Instant now) { write('#', text, now); }

 private:
  struct Close {
    void operator()(std::FILE* file) const {
      if (file != stderr) {
        std::fclose(file);
      }
    }
  };
  void add(char direction, std::string& line, std::string_view bytes, Instant now);
  void write(char direction, std::string_view line, Instant now);

  std::unique_ptr<std::FILE, Close> file_;
  std::string toRadio_;
  std::string fromRadio_;
  bool started_ = false;
  Instant start_{};
};

}  // namespace tarnvex::radio
