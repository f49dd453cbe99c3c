#include <array>

#include "desktop/panel/panel_layout.h"

// The desk set is laid out on a grid: five rows of keys, with the display over the first four. The
// bank keys are right below the bank letters of the display, column by column.
namespace tarnvex::desktop {
namespace {

constexpr double kTop = 40;
constexpr double kRowStep = 43;
constexpr double kRowHeight = 34;
constexpr double kBottom = kTop + 4 * kRowStep + kRowHeight;

constexpr QRectF kBezel{26, kTop, 404, 3 * kRowStep + kRowHeight};
constexpr QRectF kGlass = kBezel.adjusted(9, 9, -9, -9);
constexpr double kLine = kGlass.x() + 14;  // left edge of the display's text lines
constexpr double kLineEnd = kGlass.right() - 14;

constexpr double kBankFirst = kGlass.right() - 9 * 35 - 30;
constexpr double kBankStep = 35;
constexpr double kBankWidth = 30;
constexpr double kFunctionFirst = 455;
constexpr double kFunctionStep = 61;
constexpr double kFunctionWidth = 53;
constexpr double kDigitFirst = 655;
constexpr double kDigitStep = 50;
constexpr double kDigitWidth = 42;
constexpr double kKnobFirst = 822;

struct KeyPlace {
  const char* caption;
  const char* label;
  const char* spoken;
  KeyTone tone;
  double column;  // within the keys of the same tone
  double row;
};

using Tone = KeyTone;

// In the order of the `Keypad` array. The enter key's caption ends with a blank, which
// distinguishes it from that of bank E.
constexpr std::array kKeys{
    KeyPlace{"STEP", "STEP", "Step", Tone::Function, 1, 4},
    KeyPlace{"AUX", "AUX", "Auxiliary", Tone::Quiet, 0, 4},
    KeyPlace{"DIM", "DIM", "Dim", Tone::Quiet, 1, 4},
    KeyPlace{"WX", "WX", "Weather", Tone::Function, 0, 2},
    KeyPlace{"RMT", "RMT", "Remote", Tone::Quiet, 2, 4},
    KeyPlace{"SEND", "SEND", "Send", Tone::Function, 2, 4},
    KeyPlace{"HOLD", "HOLD", "Hold", Tone::Function, 1, 1},
    KeyPlace{"LIMIT", "LIMIT", "Limit", Tone::Function, 2, 1},
    KeyPlace{"SRC", "SRC", "Search", Tone::Function, 2, 0},
    KeyPlace{"AUTO", "AUTO", "Auto", Tone::Function, 1, 2},
    KeyPlace{"SCAN", "SCAN", "Scan", Tone::Function, 0, 0},
    KeyPlace{"MANUAL", "MANUAL", "Manual", Tone::Function, 1, 0},
    KeyPlace{"PRI", "PRI", "Priority", Tone::Function, 0, 3},
    KeyPlace{"TRUNK", "TRUNK", "Trunk", Tone::Function, 0, 1},
    KeyPlace{"DATA", "DATA", "Data", Tone::Function, 2, 2},
    KeyPlace{"L/O", "L/O", "Lockout", Tone::Function, 1, 3},
    KeyPlace{"DELAY", "DELAY", "Delay", Tone::Function, 2, 3},
    KeyPlace{"CTCSS", "CTCSS", "C T C S S", Tone::Function, 0, 4},
    KeyPlace{"1", "1", "1", Tone::Digit, 0, 0},
    KeyPlace{"2", "2", "2", Tone::Digit, 1, 0},
    KeyPlace{"3", "3", "3", Tone::Digit, 2, 0},
    KeyPlace{"4", "4", "4", Tone::Digit, 0, 1},
    KeyPlace{"5", "5", "5", Tone::Digit, 1, 1},
    KeyPlace{"6", "6", "6", Tone::Digit, 2, 1},
    KeyPlace{"7", "7", "7", Tone::Digit, 0, 2},
    KeyPlace{"8", "8", "8", Tone::Digit, 1, 2},
    KeyPlace{"9", "9", "9", Tone::Digit, 2, 2},
    KeyPlace{".", "\u2022", "Point", Tone::Digit, 0, 3},
    KeyPlace{"0", "0", "0", Tone::Digit, 1, 3},
    KeyPlace{"E ", "E", "Enter", Tone::Digit, 2, 3},
    KeyPlace{"A", "A", "Bank A", Tone::Bank, 0, 4},
    KeyPlace{"B", "B", "Bank B", Tone::Bank, 1, 4},
    KeyPlace{"C", "C", "Bank C", Tone::Bank, 2, 4},
    KeyPlace{"D", "D", "Bank D", Tone::Bank, 3, 4},
    KeyPlace{"E", "E", "Bank E", Tone::Bank, 4, 4},
    KeyPlace{"F", "F", "Bank F", Tone::Bank, 5, 4},
    KeyPlace{"G", "G", "Bank G", Tone::Bank, 6, 4},
    KeyPlace{"H", "H", "Bank H", Tone::Bank, 7, 4},
    KeyPlace{"I", "I", "Bank I", Tone::Bank, 8, 4},
    KeyPlace{"J", "J", "Bank J", Tone::Bank, 9, 4},
    KeyPlace{"FREQ  CHAN", "FREQ\nCHAN", "Frequency or channel", Tone::Quiet, 3, 4},
};

QRectF keyRect(const KeyPlace& place) {
  const double y = kTop + place.row * kRowStep;
  switch (place.tone) {
    case Tone::Function:
      return {kFunctionFirst + place.column * kFunctionStep, y, kFunctionWidth, kRowHeight};
    case Tone::Digit: {
      // Four rows in the height of five: the keys that are used most are the largest.
      const double step = (kBottom - kTop + 9) / 4;
      return {kDigitFirst + place.column * kDigitStep, kTop + place.row * step, kDigitWidth,
              step - 9};
    }
    case Tone::Bank:
      return {kBankFirst + place.column * kBankStep, y, kBankWidth, kRowHeight};
    case Tone::Quiet:
      break;
  }
  return {kKnobFirst + place.column * 39, y, 35, kRowHeight};
}

QVector<PanelKey> keys() {
  QVector<PanelKey> keys;
  for (const KeyPlace& place : kKeys) {
    PanelKey key;
    key.control = QStringLiteral("Keypad(%1)").arg(keys.size());
    key.caption = QString::fromUtf8(place.caption);
    key.label = QString::fromUtf8(place.label);
    key.spoken = QString::fromUtf8(place.spoken);
    key.rect = keyRect(place);
    key.tone = place.tone;
    keys.append(key);
  }
  return keys;
}

constexpr double kWordsTop = kGlass.y() + 8;
constexpr double kWordsLow = kGlass.y() + 104;

constexpr std::array kWords{
    WordPlace{"Scan", "SCAN", kLine, kWordsTop, 28},
    WordPlace{"Hold", "HOLD", kLine + 38, kWordsTop, 28},
    WordPlace{"Search", "SEARCH", kLine + 76, kWordsTop, 39},
    WordPlace{"Trunk", "TRUNK", kLine + 125, kWordsTop, 34},
    WordPlace{"Wx", "WX", kLine + 169, kWordsTop, 16},
    WordPlace{"Auto", "AUTO", kLine + 195, kWordsTop, 28},
    WordPlace{"Alert", "ALERT", kLine + 233, kWordsTop, 32},
    WordPlace{"Line", "LINE", kLine + 275, kWordsTop, 25},
    WordPlace{"Priority", "PRIORITY", kLine, kWordsLow, 48},
    WordPlace{"Delay", "DELAY", kLine + 58, kWordsLow, 33},
    WordPlace{"LO", "L/O", kLine + 101, kWordsLow, 19},
    WordPlace{"CtcssStat", "CTCSS", kLineEnd - 84, kWordsLow, 34},
    WordPlace{"MHZ", "MHz", kLineEnd - 28, kGlass.y() + 62, 28},
    WordPlace{"Bank", "BANK", kLine, kGlass.y() + 123, 28},
};

void addTexts(QVector<DisplayElement>& elements) {
  const Qt::Alignment left = Qt::AlignLeft | Qt::AlignVCenter;
  const Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
  const double y = kGlass.y();
  elements.append({QStringLiteral("Frequency"), ElementKind::MainText,
                   QRectF(kLine, y + 25, 276, 48), QStringLiteral("888.8888"), right, QString()});
  elements.append({QStringLiteral("Alpha"), ElementKind::Text, QRectF(kLine, y + 81, 282, 18),
                   QString(), left, QString()});
  elements.append({QStringLiteral("Channel"), ElementKind::SegmentText,
                   QRectF(kLineEnd - 68, y + 28, 68, 20), QStringLiteral("88888"), right,
                   QStringLiteral("channel")});
  elements.append({QStringLiteral("STEP"), ElementKind::Text, QRectF(kLineEnd - 60, y + 84, 60, 11),
                   QString(), right, QStringLiteral("step")});
  elements.append({QStringLiteral("CTCSS"), ElementKind::SegmentText,
                   QRectF(kLineEnd - 44, kWordsLow - 2.5, 44, 15), QStringLiteral("888.8"), right,
                   QStringLiteral("tone")});
}

void addArrays(QVector<DisplayElement>& elements) {
  for (int i = 0; i < 10; ++i) {
    const QString letter(QLatin1Char(static_cast<char>('A' + i)));
    elements.append({QStringLiteral("Bankltr(%1)").arg(i), ElementKind::BankLetter,
                     QRectF(kBankFirst + i * kBankStep + 5, kGlass.y() + 121, 20, 16), letter,
                     Qt::AlignCenter, QString()});
  }
  for (int i = 0; i < 5; ++i) {
    const double height = 4.0 + 2.4 * i;
    elements.append({QStringLiteral("Sig(%1)").arg(i), ElementKind::Bar,
                     QRectF(kLineEnd - 33 + i * 7, kWordsTop + 13 - height, 5, height), QString(),
                     Qt::AlignCenter, QString()});
  }
}

QVector<PanelCaption> captions() {
  const Qt::Alignment left = Qt::AlignLeft | Qt::AlignVCenter;
  const Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
  const double head = kTop - 20;
  const double knobFoot = kTop + 3 * kRowStep + kRowHeight - 11;
  const auto print = [](const char* text, const QRectF& rect, Qt::Alignment align) {
    return PanelCaption{QString::fromLatin1(text), rect, 7.5, false, align};
  };
  return {{QStringLiteral("BC895XLT"), QRectF(kBezel.x() + 1, head, 120, 12), 11, true, left},
          print("TRUNKING SCANNER", QRectF(kBezel.right() - 161, head, 160, 12), right),
          print("MODE", QRectF(kFunctionFirst + 1, head, 60, 12), left),
          print("ENTRY", QRectF(kDigitFirst + 1, head, 60, 12), left),
          print("BANK", QRectF(kGlass.x(), kTop + 4 * kRowStep, 40, kRowHeight), left),
          print("TUNE", QRectF(kKnobFirst + 46, head, 60, 12), Qt::AlignCenter),
          print("DOWN", QRectF(kKnobFirst, knobFoot, 40, 10), left),
          print("UP", QRectF(kKnobFirst + 112, knobFoot, 40, 10), right)};
}

}  // namespace

PanelLayout bc895Layout() {
  PanelLayout layout;
  layout.model = QStringLiteral("BC895XLT");
  layout.size = {1000, 274};
  layout.body = {3, 3, 994, 266};
  layout.bodyRadius = 16;
  layout.bezel = kBezel;
  layout.glass = kGlass;
  layout.spare = {kLine + 128, kWordsLow - 2, kLineEnd - kLine - 220, 16};
  layout.displayColour = QColor(255, 255, 128);
  layout.lightColour = layout.displayColour;
  layout.keys = keys();
  layout.captions = captions();
  layout.knob = PanelKnob{{kKnobFirst + 76, kTop + 81.5}, 58, 74, 13};
  addTexts(layout.elements);
  addWords(layout.elements, kWords, 12, kLineEnd);
  // When the display is read aloud, the letters have their own word "bank".
  layout.elements[layout.elementIndex(QStringLiteral("Bank"))].silent = true;
  addArrays(layout.elements);
  return layout;
}

}  // namespace tarnvex::desktop
