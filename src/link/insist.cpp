#include "link/insist.h"

#include "link/answer_filter.h"
#include "link/scanner_replies.h"

namespace tarnvex::link {
namespace {

/// Some answers are used for their digits alone.
bool isBareNumber(const std::string& answer) {
  return !answer.empty() && answer.find_first_not_of("0123456789") == std::string::npos;
}

/// Nothing comes of it after a silence, which has been reported.
std::string askAgain(ScannerLink& link, std::string_view question) {
  if (!link.mayGoOn()) {
    return {};
  }
  link.resynchronise();
  return link.SendCommand(question);
}

}  // namespace

std::string insist(ScannerLink& link, std::string_view question) {
  std::string answer = link.SendCommand(question);
  const bool refused = answer == reply::kError || answer == reply::kNothing;
  // An answer of the right form is in doubt if it came without its end.
  const bool isWhole = isOwnAnswer(question, answer) && !link.inDoubt();
  if (refused || isBareNumber(answer) || isWhole) {
    return answer;
  }
  return askAgain(link, question);
}

bool insistOn(ScannerLink& link, const Switch& subject) {
  std::string answer = link.SendCommand(subject.read);
  const bool isState = answer == subject.on || answer == subject.off;
  if (!isState && isOwnAnswer(subject.read, answer)) {
    answer = askAgain(link, subject.read);
  }
  return answer == subject.on;
}

}  // namespace tarnvex::link
