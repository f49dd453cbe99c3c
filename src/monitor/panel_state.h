#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace tarnvex::monitor {

/// An element of a radio's front by its control name, arrays as "Bankltr(3)".
struct PanelElement {
  std::string name;
  const platform::Label* label;
};

/// Appends the members of an array under their names.
template <std::size_t N>
void addElements(std::vector<PanelElement>& elements, const std::string& name,
                 const std::array<platform::Label, N>& labels) {
  for (std::size_t i = 0; i < N; ++i) {
    elements.push_back({name + "(" + std::to_string(i) + ")", &labels[i]});
  }
}

/// What every radio's front has. The labels are the live state: other rooms read the captions back.
/// Indicators never change their caption, only their visibility.
struct PanelBase {
  /// Main line: a frequency, an ID, or a word such as "Scanning".
  platform::Label Frequency;
  /// Tag of the channel or talkgroup.
  platform::Label Alpha;
  /// Channel number, or an ID's slot in trunked modes.
  platform::Label Channel;
  /// The raw answer to "MD". Hidden; dialogs and the recording gate read it.
  platform::Label mode{"FM", false};
  platform::Label Scan{"SCAN", false};
  platform::Label Hold{"HOLD", false};
  platform::Label Search{"SEARCH", false};
  platform::Label Trunk{"TRUNK", false};
  platform::Label LO{"L/O", false};
  /// Marks of the ten banks.
  std::array<platform::Label, 10> Bankltr;

  /// Shows the marks of the banks whose letters the text holds, hides the others.
  void showBanks(std::string_view letters);
  void hideBanks() { showBanks({}); }
};

/// The front of the BC895XLT.
struct PanelState : PanelBase {
  PanelState();

  platform::Label CTCSS{"000.0", false};
  platform::Label Wx{"WX", false};
  platform::Label Auto{"AUTO", false};
  platform::Label Priority{"PRIORITY", false};
  platform::Label Delay{"DELAY", false};
  platform::Label MHZ{"MHz", false};
  platform::Label CtcssStat{"CTCSS", false};
  /// The word before the bank letters.
  platform::Label Bank{"BANK", false};
  /// Signal bars; the fifth is only ever cleared.
  std::array<platform::Label, 5> Sig;
  /// Part of the picture; nothing in the poll touches them.
  platform::Label Alert{"ALERT", false};
  platform::Label Line{"LINE", false};
  platform::Label STEP{"12.5KHz", false};
  /// The display's background, in its stored colour.
  platform::Label Label1;
  /// The knob's 13 marks and their shadows, of which exactly one each is visible.
  static constexpr int kKnobMarks = 13;
  std::array<platform::Label, kKnobMarks> KnobMark;
  std::array<platform::Label, kKnobMarks> KnobShadow;

  /// All elements that are drawn, each under its name.
  [[nodiscard]] std::vector<PanelElement> elements() const;
};

/// A panel's elements as text, a line for each one that shows something: "Frequency: 155.1150".
/// Indicators show their caption, arrays one line with the members that are on, such as "Bankltr: A
/// B" and "Sig: 3".
std::vector<std::string> describe(const std::vector<PanelElement>& elements);
inline std::vector<std::string> describe(const PanelState& panel) {
  return describe(panel.elements());
}

}  // namespace tarnvex::monitor
