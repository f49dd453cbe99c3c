#include "monitor/heard_rows.h"

#include <vector>

#include "memory/plan_lookup.h"
#include "platform/convert.h"
#include "trunking/talkgroup_id.h"

namespace tarnvex::monitor {
namespace {

/// The forms in which the plan may hold an ID, which is given as the display shows it.
std::vector<std::string> planForms(const std::string& shown, bool convertsIds) {
  const bool dashed = shown.find('-') != std::string::npos;
  std::vector<std::string> forms{shown};
  if (!dashed) {
    forms.push_back(platform::format(shown, "000000"));
  }
  if (convertsIds) {
    const auto others = dashed ? trunking::decimalForms(shown) : trunking::dashedForms(shown);
    forms.insert(forms.end(), {others.first, others.second});
  }
  return forms;
}

}  // namespace

HeardRows::HeardRows(Outside outside) : outside_(outside) {
  lineChanged_ = outside_.line.changed.connect([this] {
    if (!outside_.line.live()) {
      changed.change(rows_, Rows{});
    }
  });
}

void HeardRows::tick(const Heard* heard) {
  const bool marks = heard != nullptr && outside_.line.live();
  changed.change(rows_, marks ? rowsOf(*heard) : Rows{});
  outside_.log.tick(heard);
}

HeardRows::Rows HeardRows::rowsOf(const Heard& heard) const {
  if (heard.talkgroup.empty()) {
    return {heard.channel, 0};
  }
  if (heard.bank == 0) {
    return {};
  }
  const auto forms = planForms(heard.talkgroup, outside_.convertsIds);
  return {0, memory::findTalkgroup(outside_.talkgroups, heard.bank - 1, forms).value_or(0)};
}

}  // namespace tarnvex::monitor
