// The leave question (see leave_question.h). It reads as the host's other
// questions do: the terminal is in its ordinary mode between two lines, so
// the answer is echoed and ended with Enter.
#include "devhost/shell/leave_question.h"

#include <poll.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <iostream>
#include <string>

#include "devhost/command/interrupt.h"

namespace {

const char kQuestion[] = "There are pending changes that are not saved. Leave anyway? [y/n]: ";
const int kMaxAttempts = 3;

enum class Answer { kLine, kNone, kGone };

// True when standard input has hung up: nothing more can be typed.
bool isInputGone() {
  pollfd input = {STDIN_FILENO, POLLIN, 0};
  return poll(&input, 1, 0) == 1 && (input.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

// One line, read byte by byte so that what follows stays for the shell.
Answer ReadAnswer(std::string& strLine) {
  const devhost::CInterruptCatcher catcher;
  strLine.clear();
  for (;;) {
    char c;
    const ssize_t nRead = read(STDIN_FILENO, &c, 1);
    if (devhost::isInterrupted()) return Answer::kNone;
    if (nRead < 0 && errno == EINTR) continue;
    if (nRead < 0) return Answer::kGone;
    if (nRead == 0) return isInputGone() ? Answer::kGone : strLine.empty() ? Answer::kNone : Answer::kLine;
    if (c == '\n') return Answer::kLine;
    strLine += c;
  }
}

// The answer without surrounding blanks, in lower case.
std::string Normalised(const std::string& strText) {
  const char kBlanks[] = " \t\r";
  const std::string::size_type nFirst = strText.find_first_not_of(kBlanks);
  if (nFirst == std::string::npos) return std::string();
  std::string strOut = strText.substr(nFirst, strText.find_last_not_of(kBlanks) - nFirst + 1);
  for (char& c : strOut) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return strOut;
}

}  // namespace

bool AgreesToLeave() {
  if (isInputGone()) return true;
  for (int nAttempt = 0; nAttempt < kMaxAttempts; ++nAttempt) {
    std::cout << kQuestion << std::flush;
    std::string strAnswer;
    switch (ReadAnswer(strAnswer)) {
      case Answer::kGone:
        std::cout << std::endl;
        return true;
      case Answer::kNone:
        std::cout << std::endl;
        return false;
      case Answer::kLine:
        break;
    }
    strAnswer = Normalised(strAnswer);
    if (strAnswer == "y" || strAnswer == "yes") return true;
    if (strAnswer == "n" || strAnswer == "no") return false;
    std::cout << "Please answer y (yes) or n (no)." << std::endl;
  }
  return false;
}
