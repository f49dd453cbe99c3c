#include "desktop/windows/key_tips.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>

namespace tarnvex::desktop {
namespace {

/// The tip for a key, which is identified by its label. If `letter` is empty, the key can't be
/// typed; if `right` is empty, the right button does nothing.
struct Tip {
  const char* label;
  const char* does;
  const char* letter;
  const char* right;
};

constexpr const char* kHeld = "holds the key, as on the radio";
constexpr const char* kReview =
    "lists what is locked out while searching or following a system; otherwise holds the key";

constexpr std::array kTips{
    Tip{"SCAN", "Scans the channels", "s", ""},
    Tip{"MANUAL", "Stops at one channel; after digits, goes to that channel", "m", ""},
    Tip{"MAN", "Stops at one channel; after digits, goes to that channel", "m", ""},
    Tip{"TRUNK", "Follows trunked systems", "t", "holds the key, as on the radio (T)"},
    Tip{"TRNK", "Follows trunked systems", "t", "holds the key, as on the radio (T)"},
    Tip{"HOLD", "Holds the channel or talkgroup, or goes on", "h", kHeld},
    Tip{"SRC", "Searches between the limits", "r", ""},
    Tip{"SRCH", "Searches between the limits", "r", ""},
    Tip{"LIMIT", "Sets the limits of the search", "i", kHeld},
    Tip{"PRI", "Switches the priority channel on or off", "p",
        "holds the key, as on the radio (P)"},
    Tip{"L/O", "Locks the channel out, or unlocks it", "l", kReview},
    Tip{"DELAY", "Switches the wait for an answer on or off", "d", kHeld},
    Tip{"DLY", "Switches the wait for an answer on or off", "d", ""},
    Tip{"CTCSS", "Sets the tone squelch of the channel", "c", kHeld},
    Tip{"WX", "Searches the weather channels", "w", ""},
    Tip{"SVC", "Searches the services", "w", ""},
    Tip{"DATA", "Switches the skipping of data transmissions on or off", "", ""},
    Tip{"AUTO", "Stores what a search finds", "", ""},
    Tip{"STEP", "Sets the step of the search", "", ""},
    Tip{"SEND", "Sends, in the radio's own menus", "", ""},
    Tip{"AUX", "Switches the auxiliary output of the channel", "", ""},
    Tip{"DIM", "Dims the radio's display", "", ""},
    Tip{"RMT", "Leaves Tarnvex", "", ""},
    Tip{"E", "Enters what was keyed", "Enter", ""},
    Tip{"", "Switches the light of the radio's display on or off", "", kHeld},
};

QString translated(const char* text) {
  return QCoreApplication::translate("KeyTips", text);
}

QString compose(const QString& does, const QString& letter, const QString& right) {
  const QString typed =
      letter.isEmpty() ? translated("Keyboard: none") : translated("Keyboard: %1").arg(letter);
  const QString held = right.isEmpty() ? translated("Right button: nothing")
                                       : translated("Right button: %1").arg(right);
  return does + QLatin1Char('\n') + typed + QLatin1Char('\n') + held;
}

/// Whether the right button does something on this key of the hand-held.
bool handHeldHolds(const QString& label) {
  return label.isEmpty() || label == QLatin1String("TRNK") || label == QLatin1String("PRI") ||
         label == QLatin1String("L/O");
}

/// The tip for a key that isn't in the table: digits, point, bank letters.
QString otherTip(const PanelKey& key, bool togglesBanks) {
  if (key.tone == KeyTone::Bank) {
    return compose(translated("Switches bank %1 on or off").arg(key.label), key.label, {});
  }
  if (key.caption == QLatin1String(".")) {
    const QString point = togglesBanks
                              ? translated("The point; without digits before it, the attenuator")
                              : translated("The point of a frequency, the dash of an ID");
    return compose(point, QStringLiteral("."), {});
  }
  if (key.caption.size() == 1 && key.caption[0].isDigit()) {
    const QString digit = togglesBanks
                              ? translated("A digit; while scanning, switches its bank on or off")
                              : translated("A digit");
    return compose(digit, key.caption, {});
  }
  return compose(translated("Does nothing: this key only works on the radio itself"), {}, {});
}

QString tipOf(const PanelKey& key, bool togglesBanks) {
  const auto tip = std::ranges::find_if(
      kTips, [&](const Tip& one) { return key.label == QLatin1String(one.label); });
  if (tip == kTips.end() || key.tone == KeyTone::Bank) {
    return otherTip(key, togglesBanks);
  }
  const bool holds = *tip->right != '\0' && (!togglesBanks || handHeldHolds(key.label));
  return compose(translated(tip->does), QLatin1String(tip->letter),
                 holds ? translated(tip->right) : QString());
}

}  // namespace

PanelLayout withTips(PanelLayout layout) {
  // Only the BC895XLT has keys for its banks. On the BC245XLT the digits switch them.
  const bool togglesBanks = std::ranges::none_of(
      layout.keys, [](const PanelKey& key) { return key.tone == KeyTone::Bank; });
  if (layout.knob) {
    layout.knob->tip = translated(
        "Turns the knob while it is held\nKeyboard: Page Up, Page Down; also the wheel\n"
        "Right button: up; left button: down");
  }
  for (PanelKey& key : layout.keys) {
    key.tip = tipOf(key, togglesBanks);
  }
  return layout;
}

}  // namespace tarnvex::desktop
