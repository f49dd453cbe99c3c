#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace tarnvex::monitor {

/// The labels of a radio's front panel that are drawn, in the order of their declarations.
using PanelElements = std::vector<const platform::Label*>;

/// A label that is drawn. It adds itself to the elements of its front.
class PanelElement : public platform::Label {
 public:
  PanelElement(std::string name, PanelElements& front, std::string caption = {},
               bool visible = true)
      : Label(std::move(name), std::move(caption), visible) {
    front.push_back(this);
  }
};

/// What the fronts of both radios have. The labels are the live state: other rooms read the
/// captions back. Indicators never change their caption, only their visibility.
class PanelBase {
 public:
  /// All elements that are drawn.
  [[nodiscard]] const PanelElements& elements() const { return drawn_; }

  /// Shows the marks of the banks whose letters are in the text and hides the others.
  void showBanks(std::string_view letters);
  void hideBanks() { showBanks({}); }

 protected:
  PanelElements drawn_;

 public:
  /// The main line: a frequency, an ID, or a word such as "Scanning".
  PanelElement Frequency{"Frequency", drawn_};
  /// The tag of the channel or talkgroup.
  PanelElement Alpha{"Alpha", drawn_};
  /// The channel number, or an ID's slot in trunked modes.
  PanelElement Channel{"Channel", drawn_};
  /// The raw answer to "MD". Hidden; dialogs and the recording gate read it.
  platform::Label mode{"mode", "FM", false};
  PanelElement Scan{"Scan", drawn_, "SCAN", false};
  PanelElement Hold{"Hold", drawn_, "HOLD", false};
  PanelElement Search{"Search", drawn_, "SEARCH", false};
  PanelElement Trunk{"Trunk", drawn_, "TRUNK", false};
  PanelElement LO{"LO", drawn_, "L/O", false};
  /// The marks of the ten banks.
  std::array<PanelElement, 10> Bankltr =
      platform::controlArray<PanelElement, 10>("Bankltr", drawn_);
};

/// The front panel of the BC895XLT. The poll and the keys write it.
struct PanelState : PanelBase {
  PanelState();

  PanelElement CTCSS{"CTCSS", drawn_, "000.0", false};
  PanelElement Wx{"Wx", drawn_, "WX", false};
  PanelElement Auto{"Auto", drawn_, "AUTO", false};
  PanelElement Priority{"Priority", drawn_, "PRIORITY", false};
  PanelElement Delay{"Delay", drawn_, "DELAY", false};
  PanelElement MHZ{"MHZ", drawn_, "MHz", false};
  PanelElement CtcssStat{"CtcssStat", drawn_, "CTCSS", false};
  /// The word before the bank letters.
  PanelElement Bank{"Bank", drawn_, "BANK", false};
  /// Signal bars. Deliberate: the fifth is only ever cleared, so the meter never shows more than
  /// four.
  std::array<PanelElement, 5> Sig = platform::controlArray<PanelElement, 5>("Sig", drawn_);
  /// Only part of the picture. The poll never changes them.
  PanelElement Alert{"Alert", drawn_, "ALERT", false};
  PanelElement Line{"Line", drawn_, "LINE", false};
  PanelElement STEP{"STEP", drawn_, "12.5KHz", false};
  /// The display's background, in its stored colour.
  platform::Label Label1{"Label1"};
  /// The knob's 13 marks. Exactly one is visible.
  static constexpr int kKnobMarks = 13;
  std::array<PanelElement, kKnobMarks> KnobMark =
      platform::controlArray<PanelElement, kKnobMarks>("Knob", drawn_);
};

/// A panel's elements as text, with a line for each one that shows something, such as "Frequency:
/// 155.1150". Indicators show their caption. An array has one line for all members that are on,
/// such as "Bankltr: A B" or "Sig: 3".
std::vector<std::string> describe(const PanelBase& panel);

}  // namespace tarnvex::monitor
