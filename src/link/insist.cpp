#include "link/insist.h"

#include "link/answer_filter.h"
#include "link/scanner_replies.h"

namespace tarnvex::link {
namespace {

/// Some answers are used for their digits alone. Nothing at all is the silence that was reported.
bool isBareNumber(const std::string& answer) {
  return answer.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace

std::string insist(ScannerLink& link, std::string_view question) {
  std::string answer = link.SendCommand(question);
  const bool refused = answer == reply::kError || answer == reply::kNothing;
  if (refused || isBareNumber(answer) || isOwnAnswer(question, answer)) {
    return answer;
  }
  link.resynchronise();
  return link.SendCommand(question);
}

}  // namespace tarnvex::link
