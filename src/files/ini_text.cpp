#include "files/ini_text.h"

#include <charconv>
#include <cstdint>

#include "platform/convert.h"

namespace tarnvex::files {
namespace {

constexpr std::string_view kHex = "0123456789ABCDEF";
constexpr std::string_view kBlanks = " \t\r";
/// Characters that have an escape of their own, and the letters of these escapes.
constexpr std::string_view kEscaped = "\"\\\a\b\f\n\r\t\v";
constexpr std::string_view kEscapes = "\"\\abfnrtv";

bool isHexDigit(char c) {
  return platform::isDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

bool isPlain(char c) {
  return platform::isDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         c == '-' || c == '.';
}

/// The name of a section or value as it is spelled in the file.
std::string spelled(std::string_view name) {
  std::string text;
  for (const char c : name) {
    if (isPlain(c)) {
      text += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      text += '%';
      text += kHex[byte >> 4];
      text += kHex[byte & 15];
    }
  }
  return text;
}

std::string escaped(std::string_view value) {
  std::string text = value.starts_with('@') ? "@" : "";
  bool quotes = value.starts_with(' ') || value.ends_with(' ');
  bool afterHex = false;
  for (const char c : value) {
    const std::size_t escape = kEscaped.find(c);
    const auto byte = static_cast<unsigned char>(c);
    quotes = quotes || c == ';' || c == ',' || c == '=';
    if (escape != std::string_view::npos) {
      text += '\\';
      text += kEscapes[escape];
      afterHex = false;
    } else if (byte < ' ' || (afterHex && isHexDigit(c))) {
      text += "\\x";
      text += byte >= 16 ? std::string(1, kHex[byte >> 4]) : "";
      text += kHex[byte & 15];
      afterHex = true;
    } else {
      text += c;
      afterHex = false;
    }
  }
  return quotes ? '"' + text + '"' : text;
}

void appendUtf8(std::string& text, std::uint32_t code) {
  const auto tail = [&](int shift) { text += static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
    tail(0);
  } else {
    text += static_cast<char>(0xE0 | ((code >> 12) & 0x0F));
    tail(6);
    tail(0);
  }
}

/// Decodes the escape whose letter is at `at`, and moves `at` past it.
void takeEscape(std::string& value, std::string_view text, std::size_t& at) {
  const char letter = text[at++];
  const std::size_t escape = kEscapes.find(letter);
  if (escape != std::string_view::npos) {
    value += kEscaped[escape];
    return;
  }
  const bool hex = letter == 'x';
  std::uint32_t code = 0;
  const char* const first = text.data() + at - (hex ? 0 : 1);
  const auto [end, error] = std::from_chars(first, text.data() + text.size(), code, hex ? 16 : 8);
  if (error == std::errc() && end > first) {
    appendUtf8(value, code);
    at = static_cast<std::size_t>(end - text.data());
  }
}

std::string unescaped(std::string_view text) {
  std::string value;
  bool quoted = false;
  /// Blanks before this place were quoted or escaped, so they aren't trimmed.
  std::size_t kept = 0;
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at++];
    if (c == '"') {
      quoted = !quoted;
    } else if (c == '\\' && at < text.size()) {
      takeEscape(value, text, at);
    } else {
      value += c;
      if (!quoted) {
        continue;
      }
    }
    kept = value.size();
  }
  while (value.size() > kept && kBlanks.find(value.back()) != std::string_view::npos) {
    value.pop_back();
  }
  return value.starts_with("@@") ? value.substr(1) : value;
}

/// Where a value is, or where it would go.
struct Found {
  /// The value's line without its line end. Both are the same place if there is no such line.
  std::size_t begin = 0;
  std::size_t end = 0;
  bool section = false;
  bool value = false;
};

/// If a name occurs several times, the last one counts, as in Qt's settings files.
Found find(std::string_view text, const std::string& section, const std::string& name) {
  Found found;
  bool inside = false;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    const std::string_view line = platform::trimmed(text.substr(at, end - at), kBlanks);
    if (line.starts_with('[')) {
      inside = line == '[' + section + ']';
      found.section = found.section || inside;
    }
    const bool hit = inside && platform::trimmed(line.substr(0, line.find('=')), kBlanks) == name &&
                     line.find('=') != std::string_view::npos;
    if (hit) {
      found = {at, end, true, true};
    } else if (inside && !found.value && !line.empty()) {
      found.begin = found.end = end;
    }
    at = end + 1;
  }
  return found;
}

}  // namespace

std::optional<std::string> iniValue(std::string_view text, std::string_view section,
                                    std::string_view name) {
  const Found found = find(text, spelled(section), spelled(name));
  if (!found.value) {
    return std::nullopt;
  }
  const std::string_view line = text.substr(found.begin, found.end - found.begin);
  const std::string_view value = platform::trimmed(line.substr(line.find('=') + 1), kBlanks);
  return value == "@Invalid()" ? std::nullopt : std::optional(unescaped(value));
}

std::string withIniValue(std::string_view text, std::string_view section, std::string_view name,
                         std::string_view value) {
  const std::string line = spelled(name) + "=" + escaped(value);
  const Found found = find(text, spelled(section), spelled(name));
  std::string result(text);
  if (found.value) {
    result.replace(found.begin, found.end - found.begin, line);
  } else if (found.section) {
    result.insert(found.end, "\n" + line);
  } else {
    result += !result.empty() && !result.ends_with('\n') ? "\n" : "";
    result +=
        std::string(result.empty() ? "" : "\n") + "[" + spelled(section) + "]\n" + line + "\n";
  }
  return result;
}

}  // namespace tarnvex::files
