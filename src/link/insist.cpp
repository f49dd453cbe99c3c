#include "link/insist.h"

#include "link/answer_filter.h"
#include "link/scanner_replies.h"

namespace tarnvex::link {
namespace {

/// Some answers are used for their digits alone. Nothing at all is the silence that was reported.
bool isBareNumber(const std::string& answer) {
  return answer.find_first_not_of("0123456789") == std::string::npos;
}

std::string askAgain(ScannerLink& link, std::string_view question) {
  link.resynchronise();
  return link.SendCommand(question);
}

}  // namespace

std::string insist(ScannerLink& link, std::string_view question) {
  std::string answer = link.SendCommand(question);
  const bool refused = answer == reply::kError || answer == reply::kNothing;
  if (refused || isBareNumber(answer) || isOwnAnswer(question, answer)) {
    return answer;
  }
  return askAgain(link, question);
}

bool insistOn(ScannerLink& link, const Switch& subject) {
  std::string answer = link.SendCommand(subject.read);
  const bool isState = answer == subject.on || answer == subject.off;
  if (!isState && !answer.empty() && !isAnswerWord(answer)) {
    answer = askAgain(link, subject.read);
  }
  return answer == subject.on;
}

}  // namespace tarnvex::link
