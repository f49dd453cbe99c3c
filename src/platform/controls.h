#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/non_copyable.h"
#include "platform/notifier.h"

/// Window-free models of the controls that the program's windows are made of. The core holds and
/// changes them; the window layer draws them and passes the user's events on. Rules such as
/// "setting a check box from code runs its click" live here, once.
///
/// Each control has the name that it has in the program's own language, such as "chkRecord", or
/// "MSBank(3)" for a member of an array. The name is written there and nowhere else.
///
/// Two kinds of operations: setters, which the core calls, and user operations (`userClick`, ...),
/// which the window layer calls through the event gate; these do nothing on a control that is
/// disabled or hidden.
namespace tarnvex::platform {

/// A colour number as the settings keep it: red in the lowest byte, then green, then blue.
using Colour = std::uint32_t;

/// What all controls have: a name, whether they are visible and enabled, and the keyboard focus.
class Control : private NonCopyable {
 public:
  explicit Control(std::string name) : name_(std::move(name)) {}
  virtual ~Control() = default;

  [[nodiscard]] const std::string& name() const { return name_; }
  /// Whether characters typed while the control has the focus are keys for the radio, as they are
  /// on the tab strip. The window layer asks when it binds the control.
  [[nodiscard]] bool passesKeysOn() const { return passesKeysOn_; }
  void passKeysOn() { passesKeysOn_ = true; }
  [[nodiscard]] bool visible() const { return visible_; }
  void setVisible(bool visible);
  [[nodiscard]] bool enabled() const { return enabled_; }
  void setEnabled(bool enabled);
  /// Asks the window layer to give the control the keyboard focus.
  void setFocus() { focusRequested.notify(); }

  /// Something that is drawn has changed.
  Notifier<> changed;
  Notifier<> focusRequested;

 protected:
  [[nodiscard]] bool operable() const { return visible_ && enabled_; }

 private:
  std::string name_;
  bool passesKeysOn_ = false;
  bool visible_ = true;
  bool enabled_ = true;
};

inline void passKeysOn(std::initializer_list<Control*> controls) {
  for (Control* control : controls) {
    control->passKeysOn();
  }
}

/// Makes an array of controls, each named after its index: "MSBank(0)", "MSBank(1)" and so on. All
/// get the same arguments after the name.
template <class AnyControl, std::size_t N, class... Arguments>
std::array<AnyControl, N> controlArray(std::string_view name, Arguments&... arguments) {
  return [&]<std::size_t... I>(std::index_sequence<I...>) {
    return std::array<AnyControl, N>{
        AnyControl(std::string(name) + "(" + std::to_string(I) + ")", arguments...)...};
  }
  (std::make_index_sequence<N>());
}

/// A text that the user can't edit, with a background colour.
class Label : public Control {
 public:
  explicit Label(std::string name, std::string caption = {}, bool visible = true);

  [[nodiscard]] const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);
  [[nodiscard]] Colour backColor() const { return backColor_; }
  void setBackColor(Colour colour);

 private:
  std::string caption_;
  Colour backColor_ = 0xFFFFFF;
};

/// A push button.
class Button : public Control {
 public:
  Button(std::string name, std::string caption)
      : Control(std::move(name)), caption_(std::move(caption)) {}
  [[nodiscard]] const std::string& caption() const { return caption_; }
  void userClick();

  std::function<void()> onClick;

 private:
  std::string caption_;
};

/// A box that is ticked or not.
class CheckBox : public Control {
 public:
  explicit CheckBox(std::string name, std::string caption = {}, bool value = false);
  [[nodiscard]] const std::string& caption() const { return caption_; }
  [[nodiscard]] bool value() const { return value_; }
  /// Setting another value runs the click, as a user's click does; setting the same one does
  /// nothing.
  void setValue(bool value);
  void userClick();

  std::function<void()> onClick;

 private:
  std::string caption_;
  bool value_;
};

/// One of a group of which at most one is chosen.
class OptionButton : public Control {
 public:
  OptionButton(std::string name, std::string caption, bool value = false);
  [[nodiscard]] const std::string& caption() const { return caption_; }
  [[nodiscard]] bool value() const { return value_; }
  /// Choosing one that isn't chosen yet clears the others of its group and runs its click. Clearing
  /// runs none.
  void setValue(bool value);
  /// A user's click runs the click handler even if the option is already chosen.
  void userClick();

  std::function<void()> onClick;

 private:
  friend void groupOptions(const std::vector<OptionButton*>& options);
  void choose();

  std::string caption_;
  bool value_;
  std::vector<OptionButton*> group_;
};

/// Makes the options one group. All of them must be destroyed together.
void groupOptions(const std::vector<OptionButton*>& options);

/// A drop-down list without free text. Its list index is -1 while nothing is chosen.
class ComboBox : public Control {
 public:
  explicit ComboBox(std::string name, std::vector<std::string> items = {})
      : Control(std::move(name)), items_(std::move(items)) {}
  [[nodiscard]] const std::vector<std::string>& items() const { return items_; }
  void setItems(std::vector<std::string> items);
  [[nodiscard]] int listIndex() const { return listIndex_; }
  /// The chosen item's text, empty if none is chosen.
  [[nodiscard]] std::string text() const;
  /// Chooses an item and runs the click, even if the item is already chosen. Returns false and
  /// changes nothing if the index is outside the list.
  bool setListIndex(int index);
  void userChoose(int index);

  std::function<void()> onClick;

 private:
  std::vector<std::string> items_;
  int listIndex_ = -1;
};

/// A list of lines, each of which can be selected (or ticked, where the window shows it so).
class ListBox : public Control {
 public:
  using Control::Control;

  [[nodiscard]] int count() const { return static_cast<int>(items_.size()); }
  [[nodiscard]] const std::vector<std::string>& items() const { return items_; }
  /// The line at `index`, or the empty text outside the list.
  [[nodiscard]] std::string item(int index) const;
  void add(std::string item);
  /// Adds or selects many lines and notifies the window once.
  void addAll(std::vector<std::string> items);
  void selectAll();
  void replace(int index, std::string item);
  void clear();
  [[nodiscard]] int listIndex() const { return listIndex_; }
  void setListIndex(int index);
  [[nodiscard]] std::string text() const { return item(listIndex_); }
  [[nodiscard]] bool selected(int index) const;
  void setSelected(int index, bool selected);

  /// A user's click on a line: it becomes the current one, and the click runs.
  void userClick(int index);
  /// The user changed which lines are selected. Lines beyond the end of `selected` aren't.
  void userSelect(const std::vector<bool>& selected);
  /// The right mouse button was pressed over the list.
  void userRightPress();

  std::function<void()> onClick;
  std::function<void()> onRightPress;

 private:
  std::vector<std::string> items_;
  std::vector<bool> selected_;
  int listIndex_ = -1;
};

/// A one-line text that the user can edit.
class TextBox : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& text() const { return text_; }
  void setText(std::string text);
  /// Limits what the user can put into the box to these characters. Without a call, any will do.
  void allowOnly(std::string_view characters) { allowed_ = characters; }
  /// Whether the user may put this text into the box, whether by typing, pasting or dropping it.
  [[nodiscard]] bool takes(std::string_view text) const;
  /// The same for a typed key: a character, or Backspace.
  [[nodiscard]] bool takesKey(char key) const { return key == '\b' || takes({&key, 1}); }
  /// The user's edit, after `userKey` has let the key through. Does nothing with a text that the
  /// box doesn't take.
  void userEdit(std::string text);
  /// A key typed by the user, as a character code. False if the handler swallowed it; the text then
  /// stays as it is.
  bool userKey(char key);
  /// When the user enters the box, its whole text is selected.
  void selectAllOnFocus() { selectsAllOnFocus_ = true; }
  [[nodiscard]] bool selectsAllOnFocus() const { return selectsAllOnFocus_; }

  /// Returns whether the key may take effect in the text.
  std::function<bool(char key)> onKey;
  /// Runs after each edit of the user.
  std::function<void()> onEdit;

 private:
  std::string text_;
  bool selectsAllOnFocus_ = false;
  std::string_view allowed_;
};

/// The tab strip of a main window.
class TabStrip : public Control {
 public:
  using Control::Control;

  [[nodiscard]] int tab() const { return tab_; }
  void setTab(int tab);

 private:
  int tab_ = 0;
};

/// A timer that the platform drives: while it is enabled, `fire` is called at most once per
/// `interval`, which is in milliseconds. Calls never nest: a timer doesn't fire while its handler
/// runs.
class Timer : private NonCopyable {
 public:
  explicit Timer(int intervalMs) : interval_(intervalMs) {}
  [[nodiscard]] bool enabled() const { return enabled_; }
  void setEnabled(bool enabled);
  [[nodiscard]] int interval() const { return interval_; }
  void setInterval(int milliseconds);
  /// Runs the handler if the timer is enabled and the handler isn't running already.
  void fire();
  [[nodiscard]] bool running() const { return running_; }

  std::function<void()> onTick;
  /// Enabled or interval changed.
  Notifier<> changed;
  /// The handler starts, and has ended.
  Notifier<> starting;
  Notifier<> finished;

 private:
  int interval_;
  bool enabled_ = false;
  bool running_ = false;
};

}  // namespace tarnvex::platform
