// The shell's key functions (see line_keys.h) on libedit's interface.
#include "devhost/shell/line_keys.h"

#include <algorithm>
#include <cstdio>
#include <memory>

#include "devhost/help/completion.h"
#include "devhost/utilities/terminal_text.h"

namespace {

using devhost::CNextWord;

struct TokenizerDeleter {
  void operator()(Tokenizer* pTokenizer) const { tok_end(pTokenizer); }
};

CLineState& StateOf(EditLine* pEditLine) {
  CLineState* pState = nullptr;
  el_get(pEditLine, EL_CLIENTDATA, &pState);
  return *pState;
}

const char* Prompt(EditLine* pEditLine) { return StateOf(pEditLine).strPrompt.c_str(); }

// The text before the cursor, split as the line will be: the whole words
// before, and the word being typed (empty after a blank). False inside an
// open quote, where the operator is typing a word of free text.
bool WordsBeforeCursor(EditLine* pEditLine, std::string& strBefore, std::vector<std::string>& vecBefore,
                       std::string& strPrefix) {
  const LineInfo* pLine = el_line(pEditLine);
  strBefore.assign(pLine->buffer, pLine->cursor);
  std::unique_ptr<Tokenizer, TokenizerDeleter> tokenizer(tok_init(nullptr));
  int nArgc = 0;
  const char** ppszArgv = nullptr;
  if (tok_str(tokenizer.get(), strBefore.c_str(), &nArgc, &ppszArgv) != 0) return false;
  vecBefore.assign(ppszArgv, ppszArgv + nArgc);
  strPrefix.clear();
  if (!strBefore.empty() && strBefore.back() != ' ' && !vecBefore.empty()) {
    strPrefix = vecBefore.back();
    vecBefore.pop_back();
  }
  return true;
}

// The longest start that all candidates share.
std::string CommonPrefix(const std::vector<CNextWord>& vecNext) {
  std::string strPrefix = vecNext.front().strWord;
  for (const CNextWord& next : vecNext) {
    size_t n = 0;
    while (n < strPrefix.size() && n < next.strWord.size() && strPrefix[n] == next.strWord[n]) ++n;
    strPrefix.resize(n);
  }
  return strPrefix;
}

// Puts strWord where the typed strPrefix stands. The typed text is replaced
// only when it is the word as it stands on the line (no quotes), since
// values match in any case ("I" becomes "inf").
bool PutWord(EditLine* pEditLine, const std::string& strBefore, const std::string& strPrefix,
             const std::string& strWord) {
  const bool bTypedAsIs = strBefore.size() >= strPrefix.size() &&
                          strBefore.compare(strBefore.size() - strPrefix.size(), std::string::npos, strPrefix) == 0;
  if (bTypedAsIs) {
    el_deletestr(pEditLine, static_cast<int>(strPrefix.size()));
    return el_insertstr(pEditLine, strWord.c_str()) == 0;
  }
  if (strWord.compare(0, strPrefix.size(), strPrefix) != 0) return false;
  return el_insertstr(pEditLine, strWord.substr(strPrefix.size()).c_str()) == 0;
}

// Tab: completes the word before the cursor as far as the candidates agree,
// with a blank after a single candidate; lists them when they agree no
// further, or when a number's range stands for what may be typed.
unsigned char Complete(EditLine* pEditLine, int) {
  std::string strBefore, strPrefix;
  std::vector<std::string> vecBefore;
  if (!WordsBeforeCursor(pEditLine, strBefore, vecBefore, strPrefix)) return CC_ERROR;
  const std::vector<CNextWord> vecNext = devhost::NextWords(vecBefore, strPrefix, devhost::Place::kShell);
  if (vecNext.empty()) return CC_ERROR;
  const bool bRange = std::any_of(vecNext.begin(), vecNext.end(), [](const CNextWord& next) { return next.isRange(); });
  if (!bRange && vecNext.size() == 1) {
    return PutWord(pEditLine, strBefore, strPrefix, vecNext.front().strWord + " ") ? CC_REFRESH : CC_ERROR;
  }
  const std::string strCommon = bRange ? std::string() : CommonPrefix(vecNext);
  if (strCommon.size() > strPrefix.size() && PutWord(pEditLine, strBefore, strPrefix, strCommon)) return CC_REFRESH;
  std::string strList = "\n";
  for (const CNextWord& next : vecNext) strList += devhost::EscapeControlBytes(next.strWord) + "  ";
  std::fprintf(stdout, "%s\n", strList.c_str());
  std::fflush(stdout);
  return CC_REDISPLAY;
}

// "?": lists what may come next and leaves the line as it is. Inside an
// open quote it is a question mark of the word being typed.
unsigned char ListAtCursor(EditLine* pEditLine, int) {
  std::string strBefore, strPrefix;
  std::vector<std::string> vecBefore;
  if (!WordsBeforeCursor(pEditLine, strBefore, vecBefore, strPrefix)) {
    return el_insertstr(pEditLine, "?") == 0 ? CC_REFRESH : CC_ERROR;
  }
  std::fputs("\n", stdout);
  ListNextWords(vecBefore, strPrefix);
  return CC_REDISPLAY;
}

// Ctrl-C at the prompt: drops the line being typed and gives a new prompt,
// as a login shell does, rather than ending the shell. The key shows as
// "^C" at the end of the line, and a pushed newline ends the line the usual
// way; the shell sees the mark and runs nothing.
unsigned char CancelLine(EditLine* pEditLine, int) {
  StateOf(pEditLine).bCancelled = true;
  const LineInfo* pLine = el_line(pEditLine);
  el_cursor(pEditLine, static_cast<int>(pLine->lastchar - pLine->cursor));
  el_insertstr(pEditLine, "^C");
  el_push(pEditLine, "\n");
  return CC_REFRESH;
}

}  // namespace

void BindLineKeys(EditLine* pEditLine, CLineState* pState) {
  el_set(pEditLine, EL_CLIENTDATA, pState);
  el_set(pEditLine, EL_PROMPT, Prompt);
  // The wide form: the narrow one copies the name and help text and never
  // frees the copies.
  el_wset(pEditLine, EL_ADDFN, L"ktl-complete", L"complete a command, option or value", Complete);
  el_set(pEditLine, EL_BIND, "^I", "ktl-complete", nullptr);
  el_wset(pEditLine, EL_ADDFN, L"ktl-list", L"list the words that may come next", ListAtCursor);
  el_set(pEditLine, EL_BIND, "?", "ktl-list", nullptr);
  // While a line is edited, the terminal passes Ctrl-C on as a key instead
  // of a signal. A command the line runs still gets the signal and ends, as
  // a one-shot ktl-cli would; its files stay whole.
  el_set(pEditLine, EL_SETTY, "-d", "-isig", nullptr);
  el_wset(pEditLine, EL_ADDFN, L"ktl-cancel", L"drop the line being typed", CancelLine);
  el_set(pEditLine, EL_BIND, "^C", "ktl-cancel", nullptr);
}

void ListNextWords(const std::vector<std::string>& vecBefore, const std::string& strPrefix) {
  const std::vector<CNextWord> vecNext = devhost::NextWords(vecBefore, strPrefix, devhost::Place::kShell);
  if (vecNext.empty()) std::fputs("  (no word may come next here)\n", stdout);
  size_t nColumn = 0;
  for (const CNextWord& next : vecNext) nColumn = std::max(nColumn, next.strWord.size());
  for (const CNextWord& next : vecNext) {
    std::string strLine = "  " + next.strWord;
    if (!next.strMeaning.empty()) strLine += std::string(nColumn + 2 - next.strWord.size(), ' ') + next.strMeaning;
    std::fprintf(stdout, "%s\n", devhost::EscapeControlBytes(strLine).c_str());
  }
  std::fflush(stdout);
}
