#include "search/limit_box.h"

#include "link/scanner_commands.h"
#include "platform/convert.h"

namespace tarnvex::search {
namespace {

constexpr char kEnter = '\r';
constexpr char kBackspace = '\b';

}  // namespace

LimitBox::LimitBox(Parts parts, link::ScannerLink& link, std::function<void()> beep)
    : parts_(parts), link_(link), beep_(std::move(beep)) {
  parts_.box.onKey = [this](char typed) { return key(typed); };
  parts_.box.onFocus = [&box = parts_.box] { box.selectAll(); };
}

bool LimitBox::key(char key) {
  if (key == kEnter) {
    enter();
    return false;
  }
  if (key == kBackspace || key == '.' || (key >= '0' && key <= '9')) {
    parts_.editing = true;
    return true;
  }
  beep_();
  return false;
}

void LimitBox::enter() {
  parts_.editing = false;
  const auto limit = platform::toReal(parts_.box.text());
  if (!limit || *limit < kLowest || *limit > kHighest) {
    beep_();
    return;
  }
  link_.SendCommand(link::command::setLimit(parts_.command, *limit));
  link_.SendCommand(link::key::kScan);
  parts_.next.setFocus();
}

}  // namespace tarnvex::search
