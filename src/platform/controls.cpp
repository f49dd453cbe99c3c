#include "platform/controls.h"

#include <algorithm>
#include <iterator>

namespace tarnvex::platform {

void Control::setVisible(bool visible) {
  changed.change(visible_, visible);
}

void Control::setEnabled(bool enabled) {
  changed.change(enabled_, enabled);
}

Label::Label(std::string name, std::string caption, bool visible)
    : Control(std::move(name)), caption_(std::move(caption)) {
  setVisible(visible);
}

void Label::setCaption(std::string caption) {
  changed.change(caption_, std::move(caption));
}

void Label::setBackColor(Colour colour) {
  changed.change(backColor_, colour);
}

void Button::userClick() {
  if (operable()) {
    run(onClick);
  }
}

CheckBox::CheckBox(std::string name, std::string caption, bool value)
    : Control(std::move(name)), caption_(std::move(caption)), value_(value) {}

void CheckBox::setValue(bool value) {
  if (changed.change(value_, value)) {
    run(onClick);
  }
}

void CheckBox::userClick() {
  if (operable()) {
    setValue(!value_);
  }
}

OptionButton::OptionButton(std::string name, std::string caption, bool value)
    : Control(std::move(name)), caption_(std::move(caption)), value_(value), group_{this} {}

void OptionButton::setValue(bool value) {
  if (value_ == value) {
    return;
  }
  if (value) {
    choose();
    run(onClick);
  } else {
    value_ = false;
    changed.notify();
  }
}

void OptionButton::userClick() {
  if (operable()) {
    choose();
    run(onClick);
  }
}

void OptionButton::choose() {
  for (OptionButton* option : group_) {
    option->changed.change(option->value_, option == this);
  }
}

void groupOptions(const std::vector<OptionButton*>& options) {
  for (OptionButton* option : options) {
    option->group_ = options;
  }
}

void ComboBox::setItems(std::vector<std::string> items) {
  items_ = std::move(items);
  listIndex_ = -1;
  changed.notify();
}

std::string ComboBox::text() const {
  return listIndex_ < 0 ? std::string() : items_[static_cast<std::size_t>(listIndex_)];
}

bool ComboBox::setListIndex(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= items_.size()) {
    return false;
  }
  listIndex_ = index;
  changed.notify();
  run(onClick);
  return true;
}

void ComboBox::userChoose(int index) {
  if (operable()) {
    setListIndex(index);
  }
}

std::string ListBox::item(int index) const {
  return index < 0 || index >= count() ? std::string() : items_[static_cast<std::size_t>(index)];
}

void ListBox::add(std::string item) {
  items_.push_back(std::move(item));
  selected_.push_back(false);
  changed.notify();
}

void ListBox::addAll(std::vector<std::string> items) {
  std::ranges::move(items, std::back_inserter(items_));
  selected_.resize(items_.size());
  changed.notify();
}

void ListBox::selectAll() {
  selected_.assign(items_.size(), true);
  changed.notify();
}

void ListBox::replace(int index, std::string item) {
  if (index >= 0 && index < count()) {
    items_[static_cast<std::size_t>(index)] = std::move(item);
    changed.notify();
  }
}

void ListBox::clear() {
  items_.clear();
  selected_.clear();
  listIndex_ = -1;
  changed.notify();
}

void ListBox::setListIndex(int index) {
  if (index >= -1 && index < count()) {
    changed.change(listIndex_, index);
  }
}

bool ListBox::selected(int index) const {
  return index >= 0 && index < count() && selected_[static_cast<std::size_t>(index)];
}

void ListBox::setSelected(int index, bool selected) {
  if (index >= 0 && index < count() && selected_[static_cast<std::size_t>(index)] != selected) {
    selected_[static_cast<std::size_t>(index)] = selected;
    changed.notify();
  }
}

void ListBox::userClick(int index) {
  if (operable() && index >= 0 && index < count()) {
    setListIndex(index);
    run(onClick);
  }
}

void ListBox::userSelect(const std::vector<bool>& selected) {
  if (!operable()) {
    return;
  }
  for (std::size_t i = 0; i < selected_.size(); ++i) {
    selected_[i] = i < selected.size() && selected[i];
  }
  changed.notify();
}

void ListBox::userRightPress() {
  if (operable()) {
    run(onRightPress);
  }
}

void TextBox::setText(std::string text) {
  changed.change(text_, std::move(text));
}

bool TextBox::takes(std::string_view text) const {
  return allowed_.empty() || text.find_first_not_of(allowed_) == std::string_view::npos;
}

void TextBox::userEdit(std::string text) {
  if (takes(text)) {
    setText(std::move(text));
    run(onEdit);
  }
}

bool TextBox::userKey(char key) {
  return operable() && (!onKey || onKey(key));
}

void TabStrip::setTab(int tab) {
  changed.change(tab_, tab);
}

void Timer::setEnabled(bool enabled) {
  changed.change(enabled_, enabled);
}

void Timer::setInterval(int milliseconds) {
  changed.change(interval_, milliseconds);
}

void Timer::fire() {
  if (!enabled_ || running_) {
    return;
  }
  running_ = true;
  starting.notify();
  run(onTick);
  running_ = false;
  finished.notify();
}

}  // namespace tarnvex::platform
