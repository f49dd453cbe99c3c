#include <array>

#include "desktop/panel/panel_layout.h"

// The hand-held: display on top, then a grid of four columns and six rows. The digits are in the
// first three columns as on a telephone. The keys that act on a channel are in the fourth.
namespace tarnvex::desktop {
namespace {

constexpr double kLeft = 20;
constexpr double kRight = 280;
constexpr QRectF kBezel{kLeft, 86, kRight - kLeft, 162};
constexpr QRectF kGlass = kBezel.adjusted(8, 8, -8, -8);
constexpr double kLine = kGlass.x() + 11;
constexpr double kLineEnd = kGlass.right() - 11;

constexpr double kGap = 9;
constexpr double kKeyWidth = (kRight - kLeft - 3 * kGap) / 4;
constexpr double kKeyHeight = 36;
constexpr double kKeysTop = kBezel.bottom() + 20;
constexpr double kKeysBottom = kKeysTop + 5 * (kKeyHeight + kGap) + kKeyHeight;

struct KeyPlace {
  const char* control;
  const char* caption;
  const char* label;
  const char* spoken;
  int column;
  int row;
};

constexpr std::array kKeys{
    KeyPlace{"Label1", "", "", "Light", 3, 5},
    KeyPlace{"Label2", "  SCAN", "SCAN", "Scan", 0, 0},
    KeyPlace{"Label3", " MAN", "MAN", "Manual", 1, 0},
    KeyPlace{"Label4", " TRNK", "TRNK", "Trunk", 2, 0},
    KeyPlace{"Label5", "    SVC", "SVC", "Service", 3, 0},
    KeyPlace{"Label6", "     PRI", "PRI", "Priority", 0, 1},
    KeyPlace{"Label8", "1", "1", "1", 0, 2},
    KeyPlace{"Label9", "2", "2", "2", 1, 2},
    KeyPlace{"Label10", "3", "3", "3", 2, 2},
    KeyPlace{"Label12", "4", "4", "4", 0, 3},
    KeyPlace{"Label13", "5", "5", "5", 1, 3},
    KeyPlace{"Label14", "6", "6", "6", 2, 3},
    KeyPlace{"Label15", "7", "7", "7", 0, 4},
    KeyPlace{"Label16", "8", "8", "8", 1, 4},
    KeyPlace{"Label17", "9", "9", "9", 2, 4},
    KeyPlace{"Label18", ".", "\u2022", "Point", 0, 5},
    KeyPlace{"Label19", "0", "0", "0", 1, 5},
    KeyPlace{"Label20", "E", "E", "Enter", 2, 5},
    KeyPlace{"Label21", "   LIMIT", "LIMIT", "Limit", 1, 1},
    KeyPlace{"Label22", " SRCH", "SRCH", "Search", 2, 1},
    KeyPlace{"Label23", "   HOLD", "HOLD", "Hold", 3, 1},
    KeyPlace{"Label24", "  DLY", "DLY", "Delay", 3, 3},
    KeyPlace{"Label25", "   L/O", "L/O", "Lockout", 3, 2},
    KeyPlace{"Label26", " DATA", "DATA", "Data", 3, 4},
};

QVector<PanelKey> keys() {
  QVector<PanelKey> keys;
  for (const KeyPlace& place : kKeys) {
    PanelKey key;
    key.control = QString::fromLatin1(place.control);
    key.caption = QString::fromLatin1(place.caption);
    key.label = QString::fromUtf8(place.label);
    key.spoken = QString::fromLatin1(place.spoken);
    key.rect = QRectF(kLeft + place.column * (kKeyWidth + kGap),
                      kKeysTop + place.row * (kKeyHeight + kGap), kKeyWidth, kKeyHeight);
    key.tone = place.row >= 2 && place.column < 3 ? KeyTone::Digit : KeyTone::Function;
    if (key.label.isEmpty()) {
      key.icon = KeyIcon::Light;
      key.tone = KeyTone::Quiet;
    }
    keys.append(key);
  }
  return keys;
}

constexpr double kWordsTop = kGlass.y() + 7;
constexpr double kWordsMiddle = kGlass.y() + 87;
constexpr double kWordsLow = kGlass.y() + 106;
constexpr double kBanksTop = kGlass.y() + 123;

constexpr std::array kWords{
    WordPlace{"Scan", "SCAN", kLine, kWordsTop, 27},
    WordPlace{"Hold", "HOLD", kLine + 37, kWordsTop, 27},
    WordPlace{"Search", "SEARCH", kLine + 74, kWordsTop, 38},
    WordPlace{"Trunk", "TRUNK", kLine + 122, kWordsTop, 33},
    WordPlace{"Att", "ATT", kLineEnd - 19, kWordsTop, 19},
    WordPlace{"Police", "SERVICE SEARCH ON", kLineEnd - 100, kWordsMiddle, 100},
    WordPlace{"Pri", "PRI", kLine, kWordsLow, 17},
    WordPlace{"Dly", "DLY", kLine + 32, kWordsLow, 21},
    WordPlace{"LO", "L/O", kLine + 68, kWordsLow, 19},
    WordPlace{"Data", "DATA", kLine + 102, kWordsLow, 27},
    WordPlace{"Keylock", "KEYLOCK", kLineEnd - 46, kWordsLow, 46},
};

void addTexts(QVector<DisplayElement>& elements) {
  const Qt::Alignment left = Qt::AlignLeft | Qt::AlignVCenter;
  const Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
  const double y = kGlass.y();
  elements.append({QStringLiteral("Frequency"), ElementKind::MainText,
                   QRectF(kLine, y + 23, kLineEnd - kLine, 39), QStringLiteral("888.8888"), right,
                   QString()});
  elements.append({QStringLiteral("Alpha"), ElementKind::Text,
                   QRectF(kLine, y + 67, kLineEnd - kLine, 16), QString(), left, QString()});
  elements.append({QStringLiteral("Channel"), ElementKind::SegmentText,
                   QRectF(kLine, y + 86, 62, 15), QStringLiteral("88888"), left,
                   QStringLiteral("channel")});
  elements.append({QStringLiteral("TrunkType"), ElementKind::Text,
                   QRectF(kLine + 161, kWordsTop, 12, 11), QString(), left,
                   QStringLiteral("system")});
}

DisplayElement silentWord(const QString& name, const QString& word, const QRectF& rect,
                          Qt::Alignment align) {
  return {name, ElementKind::Word, rect, word, align, QString(), true};
}

/// The row of banks. When the display is read aloud, the marks name their banks and the digits
/// above them are left out.
void addBanks(QVector<DisplayElement>& elements) {
  const double first = kLine + 36;
  const double step = (kLineEnd - first) / 10;
  for (int i = 0; i < 10; ++i) {
    const QString digit = QString::number(i + 1);
    const QRectF rect(first + i * step + 1, kBanksTop, step - 2, 11);
    elements.append(silentWord(QStringLiteral("Bank(%1)").arg(i), digit, rect, Qt::AlignCenter));
    elements.append({QStringLiteral("Bankltr(%1)").arg(i), ElementKind::Mark,
                     QRectF(rect.x() + 1, rect.bottom() + 1.5, rect.width() - 2, 3), QString(),
                     Qt::AlignCenter, digit});
  }
  elements.append(silentWord(QStringLiteral("Bank(10)"), QStringLiteral("BANK"),
                             QRectF(kLine, kBanksTop, 28, 11), Qt::AlignLeft | Qt::AlignVCenter));
}

QVector<PanelCaption> captions() {
  const QRectF head(kLeft + 1, 66, kRight - kLeft - 2, 12);
  return {{QStringLiteral("BC245XLT"), head, 11, true, Qt::AlignLeft | Qt::AlignVCenter},
          {QStringLiteral("TRUNK TRACKING"), head, 7.5, false, Qt::AlignRight | Qt::AlignVCenter}};
}

}  // namespace

PanelLayout bc245Layout() {
  PanelLayout layout;
  layout.model = QStringLiteral("BC245XLT");
  layout.size = {300, kKeysBottom + 27};
  layout.body = {3, 48, 294, kKeysBottom - 24};
  layout.bodyRadius = 24;
  layout.bezel = kBezel;
  layout.glass = kGlass;
  layout.spare = {kLine + 64, kWordsMiddle - 2, kLineEnd - kLine - 166, 14};
  layout.displayColour = QColor(0xa3, 0xb0, 0x96);
  layout.lightColour = QColor(0xff, 0xb2, 0x4d);
  layout.keyLetters = 11;
  layout.keys = keys();
  layout.captions = captions();
  layout.fittings = {
      {QRectF(40, 24, 46, 40), 6}, {QRectF(104, 24, 46, 40), 6}, {QRectF(226, 3, 34, 60), 12}};
  addTexts(layout.elements);
  addWords(layout.elements, kWords, 11, kLineEnd);
  addBanks(layout.elements);
  return layout;
}

}  // namespace tarnvex::desktop
