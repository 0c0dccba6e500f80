// CMessage::Inquiry: asks a catalogue question on standard output and reads
// the answer from standard input.
#include <unistd.h>

#include <cerrno>
#include <iostream>

#include "devhost/command/interrupt.h"
#include "devhost/compare/question_preview.h"
#include "devhost/files/command_lock.h"
#include "devhost/messages/held_messages.h"
#include "devhost/messages/message_catalogue.h"
#include "devhost/messages/question_outcome.h"
#include "host/message.h"
#include "host/string_util.h"

namespace {

// Wrong answers after which the question counts as declined.
const int kMaxAttempts = 3;

// One line from standard input, read byte by byte so that nothing after the
// answer is taken from a shared input (a script piping several answers).
// False at the end of input with nothing read, and on Ctrl-C in the shell.
bool ReadAnswerLine(std::string& strLine) {
  strLine.clear();
  for (;;) {
    char c;
    const ssize_t nRead = read(STDIN_FILENO, &c, 1);
    // Checked after the read too: a key typed right after Ctrl-C may
    // reach the read before the signal does.
    if (devhost::isInterrupted()) return false;
    if (nRead < 0 && errno == EINTR) continue;
    if (nRead <= 0) return !strLine.empty();
    if (c == '\n') return true;
    strLine += c;
  }
}

std::string Trimmed(const std::string& strText) {
  const char kBlanks[] = " \t\r";
  const auto nFirst = strText.find_first_not_of(kBlanks);
  if (nFirst == std::string::npos) return std::string();
  return strText.substr(nFirst, strText.find_last_not_of(kBlanks) - nFirst + 1);
}

// Says that nothing was done, in the question's own words when the
// catalogue has them ("Nothing was saved."), and records the outcome.
bool Declined(const std::string& strMsgId, const char* pszWhy) {
  std::string strText;
  std::string strProblem;
  if (!devhost::LookupDeclinedText(strMsgId, strText, strProblem)) strText = "Nothing was done.";
  std::cout << pszWhy << strText << std::endl;
  devhost::NoteQuestionDeclined();
  return false;
}

}  // namespace

// nDefault is part of the host's interface; the answer is always asked for.
bool CMessage::Inquiry(std::string strMsgId, int /*nDefault*/) {
  std::string strQuestion;
  std::string strProblem;
  if (!devhost::LookupMessageText(strMsgId, strQuestion, strProblem)) strQuestion = strMsgId;
  if (!strProblem.empty()) std::cerr << "ktl-cli: " << strProblem << std::endl;

  // What the command said so far comes before its question.
  devhost::FlushHeldMessages();
  // Read while this command still holds the lock: what the operator decides
  // on is what the command then finds.
  if (devhost::PreviewQuestion(strMsgId, std::cout) == devhost::QuestionNeed::kNothingTo) return true;

  // Other commands may run while the operator thinks about the answer.
  const devhost::CCommandLockReleased released;

  for (int nAttempt = 0; nAttempt < kMaxAttempts; ++nAttempt) {
    std::cout << strQuestion << " [y/n]: " << std::flush;
    std::string strAnswer;
    if (!ReadAnswerLine(strAnswer)) {
      std::cout << std::endl;
      return Declined(strMsgId, "No answer. ");
    }
    // An answer that does not come from a terminal was not echoed by one:
    // show it, so that a scripted session reads as it would typed.
    if (!isatty(STDIN_FILENO)) std::cout << strAnswer << std::endl;
    strAnswer = CStringUtil::StringToLowerCase(Trimmed(strAnswer));
    if (strAnswer == "y" || strAnswer == "yes") return true;
    if (strAnswer == "n" || strAnswer == "no") return Declined(strMsgId, "");
    std::cout << "Please answer y (yes) or n (no)." << std::endl;
  }
  return Declined(strMsgId, "No valid answer. ");
}
