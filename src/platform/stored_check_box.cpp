#include "platform/stored_check_box.h"

#include "platform/convert.h"

namespace tarnvex::platform {
namespace {

constexpr std::string_view stored(bool value) {
  return value ? "1" : "0";
}

}  // namespace

StoredCheckBox::StoredCheckBox(std::string name, std::string caption, Setting setting, bool value)
    : CheckBox(std::move(name), std::move(caption), value), setting_(std::move(setting)) {
  onClick = [this] {
    setting_.store.saveSetting(setting_.section, setting_.key, stored(this->value()));
    run(onStored);
  };
}

void StoredCheckBox::load() {
  const auto text = setting_.store.getSetting(setting_.section, setting_.key, stored(value()));
  if (const auto number = toInteger(text)) {
    setValue(*number != 0);
  }
}

}  // namespace tarnvex::platform
