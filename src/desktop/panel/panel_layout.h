#pragma once

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QVector>
#include <optional>
#include <span>

/// Where things are on a radio's front panel. Pure data, with one value for each radio.
///
/// All measures are in abstract units. RadioPanel scales them to its widget, so only their
/// proportions matter. At 100 % and the panel's natural size, a unit is about a pixel. y grows
/// downwards, angles run clockwise from twelve o'clock.
namespace tarnvex::desktop {

/// How a display element is drawn, and what setElement() changes of it.
enum class ElementKind {
  MainText,     ///< The largest line, in segments; text and visibility.
  SegmentText,  ///< A small line in segments; text and visibility.
  Text,         ///< Free text in a clean face; long text shrinks, then is elided.
  Word,         ///< An indicator word; only its visibility changes, the word is `ghost`.
  BankLetter,   ///< As Word, but one of the row of banks.
  Bar,          ///< A bar of the signal meter; only its visibility changes.
  Mark,         ///< A small mark; only its visibility changes.
};

/// Whether elements of this kind are only lit or dark, so that their text is ignored.
bool hasOwnShape(ElementKind kind);

/// One changing thing on the display glass.
struct DisplayElement {
  QString name;  ///< Control name, array members as "Bankltr(3)".
  ElementKind kind = ElementKind::Text;
  QRectF rect;
  /// What shows faintly while the element isn't lit: the word itself, or for segments the cells at
  /// rest, such as "888.8888". If it is empty, there is no ghost.
  QString ghost;
  Qt::Alignment align = Qt::AlignLeft | Qt::AlignVCenter;
  /// When the display is read aloud: the word before the text, such as "channel", or the
  /// replacement for an indicator's word.
  QString spoken;
  bool silent = false;  ///< Left out when the display is read aloud.
};

/// A drawing on a key that has no letters.
enum class KeyIcon { None, Light };

/// A key's colour. Keys with the same purpose look alike.
enum class KeyTone { Function, Digit, Bank, Quiet };

/// One key. Its key index is its position in PanelLayout::keys.
struct PanelKey {
  QString control;  ///< Control name, "Keypad(10)" or "Label2".
  QString caption;  ///< The exact caption of the control, blanks included.
  QString label;    ///< What is drawn on the key; a line feed separates two lines.
  QString spoken;   ///< Accessible name.
  QString tip;      ///< Shown when the pointer rests on the key; the accessible description.
  QRectF rect;
  KeyTone tone = KeyTone::Function;
  KeyIcon icon = KeyIcon::None;
};

/// The tuning knob with its ring of marks, "Knob(0)" at the top and on clockwise.
struct PanelKnob {
  QPointF centre;
  double radius = 0;      ///< That of the knob itself.
  double ringRadius = 0;  ///< That of the circle through the marks.
  int marks = 0;
  /// Shown when the pointer rests on it.
  QString tip = {};
  /// The area that reacts to the mouse. The round knob lies within it.
  [[nodiscard]] QRectF area() const {
    const double reach = ringRadius + 6;
    return {centre.x() - reach, centre.y() - reach, 2 * reach, 2 * reach};
  }
};

/// Fixed print on the body.
struct PanelCaption {
  QString text;
  QRectF rect;
  double size = 8;  ///< Letter height in units.
  bool strong = false;
  Qt::Alignment align = Qt::AlignLeft | Qt::AlignVCenter;
};

/// A round part on top of the case, seen from the side: an antenna, a small knob.
struct PanelFitting {
  QRectF rect;
  double radius = 0;
};

/// A whole front: its measures, colours, display elements, keys, knob and print.
struct PanelLayout {
  QString model;  ///< "BC895XLT".
  QSizeF size;
  QRectF body;
  double bodyRadius = 0;
  QRectF bezel;            ///< The dark frame around the display.
  QRectF glass;            ///< The lit display itself.
  QRectF spare;            ///< A part of the glass where nothing of the radio's is drawn.
  QColor displayColour;    ///< Initial back colour of the display.
  QColor lightColour;      ///< Back colour with the light on. The same if it is always on.
  double keyLetters = 10;  ///< Letter height of a one-line key label, in units.
  QVector<DisplayElement> elements;
  QVector<PanelKey> keys;
  std::optional<PanelKnob> knob;
  QVector<PanelCaption> captions;
  QVector<PanelFitting> fittings;

  /// The index of the key with this control name, or -1.
  [[nodiscard]] int keyIndex(const QString& control) const;
  /// The index of the display element with this name, or -1.
  [[nodiscard]] int elementIndex(const QString& name) const;
};

/// A word of a display: its element, and its place in units.
struct WordPlace {
  const char* name;
  const char* word;
  double x;
  double y;
  double width;
};

/// Adds words of one height. What ends at `lineEnd` keeps to the right of its place.
void addWords(QVector<DisplayElement>& elements, std::span<const WordPlace> words, double height,
              double lineEnd);

/// The desk set. Its key index is the index of the `Keypad` array, 0 to 40.
PanelLayout bc895Layout();

/// The hand-held. Its keys are `Label1` to `Label26`; find their index with keyIndex().
PanelLayout bc245Layout();

/// Only the radio's display in its frame, without body, keys and knob, for a small window.
PanelLayout displayOnly(const PanelLayout& layout);

}  // namespace tarnvex::desktop
