#include "search/limit_box.h"

#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::search {
namespace {

constexpr char kEnter = '\r';

}  // namespace

LimitBox::LimitBox(std::string name, bool& editing, std::string_view command,
                   platform::Control& next, link::ScannerLink& link, platform::Dialogs& dialogs)
    : TextBox(std::move(name)),
      editing_(editing),
      command_(command),
      next_(next),
      link_(link),
      dialogs_(dialogs) {
  allowOnly("0123456789.");
  onKey = [this](char typed) { return key(typed); };
  onEdit = [this] { editing_ = true; };
  selectAllOnFocus();
}

void LimitBox::send() {
  if (const auto limit = platform::toReal(text())) {
    link_.SendCommand(link::command::setLimit(command_, *limit));
  }
}

bool LimitBox::key(char key) {
  if (key == kEnter) {
    enter();
    return false;
  }
  if (takesKey(key)) {
    editing_ = true;
    return true;
  }
  dialogs_.beep();
  return false;
}

void LimitBox::enter() {
  editing_ = false;
  const auto limit = platform::toReal(text());
  if (!limit || *limit < kLowest || *limit > kHighest) {
    dialogs_.beep();
    return;
  }
  send();
  link_.SendCommand(link::key::kScan);
  next_.setFocus();
}

}  // namespace tarnvex::search
