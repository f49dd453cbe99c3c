#include "desktop/ports/text.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <optional>

namespace tarnvex::desktop {
namespace {

/// Windows-1252 from 0x80 to 0x9F. The rest of the code page is Latin-1. The five bytes without a
/// character keep their number, so that every text survives a round trip.
constexpr std::array<char16_t, 32> kHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr unsigned char kHighStart = 0x80;
constexpr std::size_t kLongestLine = 500;

/// The byte of a character. Nothing if the code page doesn't have it.
std::optional<char> byteOf(char16_t code) {
  if (code < kHighStart || (code >= kHighStart + kHigh.size() && code <= 0xFF)) {
    return static_cast<char>(code);
  }
  const auto* high = std::ranges::find(kHigh, code);
  return high == kHigh.end()
             ? std::nullopt
             : std::optional(static_cast<char>(kHighStart + (high - kHigh.begin())));
}

}  // namespace

QString toScreen(std::string_view text) {
  QString shown;
  shown.reserve(static_cast<qsizetype>(text.size()));
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    const bool high = byte >= kHighStart && byte < kHighStart + kHigh.size();
    shown += QChar(high ? kHigh[byte - kHighStart] : char16_t{byte});
  }
  return shown;
}

QString lineToScreen(std::string_view text) {
  return toScreen(text.substr(0, kLongestLine));
}

std::string fromScreen(const QString& text, bool* dropped) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.size()));
  for (const QChar character : text) {
    if (const auto byte = byteOf(character.unicode())) {
      bytes += *byte;
    }
  }
  if (dropped != nullptr) {
    *dropped = std::cmp_less(bytes.size(), text.size());
  }
  return bytes;
}

std::string fromScreen(const QString& text, char substitute) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.size()));
  for (const QChar character : text) {
    bytes += byteOf(character.unicode()).value_or(substitute);
  }
  return bytes;
}

QString messageToScreen(std::string_view text) {
  QStringDecoder fileName(QStringDecoder::Utf8);
  const QString decoded = fileName(QByteArrayView(text));
  return fileName.hasError() ? toScreen(text) : decoded;
}

QString titleToScreen(std::string_view text) {
  return messageToScreen(text).replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

}  // namespace tarnvex::desktop
