// The interactive shell (see shell.h) on libedit's own interface: EditLine
// for the line, History for ~/.ktl_history, Tokenizer for the words.
#include "devhost/shell/shell.h"

#include <histedit.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>

#include "devhost/help/completion.h"

namespace {

const char kPrompt[] = "ktl> ";
const char kHistoryFile[] = ".ktl_history";
const int kHistorySize = 1000;
const char kExitWord[] = "exit";
const int kExitUsage = 2;

const char* Prompt(EditLine*) { return kPrompt; }

std::string HistoryPath() {
  const char* pszHome = std::getenv("HOME");
  return pszHome != nullptr && pszHome[0] != '\0' ? std::string(pszHome) + "/" + kHistoryFile : std::string();
}

struct TokenizerDeleter {
  void operator()(Tokenizer* pTokenizer) const { tok_end(pTokenizer); }
};
struct HistoryDeleter {
  void operator()(History* pHistory) const { history_end(pHistory); }
};
struct EditLineDeleter {
  void operator()(EditLine* pEditLine) const { el_end(pEditLine); }
};

// The longest start that all candidates share.
std::string CommonPrefix(const std::vector<std::string>& vecCandidates) {
  std::string strPrefix = vecCandidates.front();
  for (const std::string& strCandidate : vecCandidates) {
    size_t n = 0;
    while (n < strPrefix.size() && n < strCandidate.size() && strPrefix[n] == strCandidate[n]) ++n;
    strPrefix.resize(n);
  }
  return strPrefix;
}

// Tab: completes the word before the cursor as far as the candidates agree,
// with a blank after a single candidate; lists them when they agree no
// further.
unsigned char Complete(EditLine* pEditLine, int) {
  const LineInfo* pLine = el_line(pEditLine);
  const std::string strBefore(pLine->buffer, pLine->cursor);
  std::unique_ptr<Tokenizer, TokenizerDeleter> tokenizer(tok_init(nullptr));
  int nArgc = 0;
  const char** ppszArgv = nullptr;
  // An open quote is left to the operator: nothing to complete.
  if (tok_str(tokenizer.get(), strBefore.c_str(), &nArgc, &ppszArgv) != 0) return CC_ERROR;
  std::vector<std::string> vecBefore(ppszArgv, ppszArgv + nArgc);
  std::string strPrefix;
  if (!strBefore.empty() && strBefore.back() != ' ' && !vecBefore.empty()) {
    strPrefix = vecBefore.back();
    vecBefore.pop_back();
  }
  std::vector<std::string> vecCandidates = devhost::CompletionCandidates(vecBefore, strPrefix);
  if (vecBefore.empty() && std::string(kExitWord).compare(0, strPrefix.size(), strPrefix) == 0) {
    vecCandidates.push_back(kExitWord);
  }
  if (vecCandidates.empty()) return CC_ERROR;
  if (vecCandidates.size() == 1) {
    const std::string strRest = vecCandidates.front().substr(strPrefix.size()) + " ";
    el_insertstr(pEditLine, strRest.c_str());
    return CC_REFRESH;
  }
  const std::string strCommon = CommonPrefix(vecCandidates);
  if (strCommon.size() > strPrefix.size()) {
    el_insertstr(pEditLine, strCommon.substr(strPrefix.size()).c_str());
    return CC_REFRESH;
  }
  std::string strList = "\n";
  for (const std::string& strCandidate : vecCandidates) strList += strCandidate + "  ";
  // The candidates go to the terminal being edited; a failed write there has
  // nowhere else to be reported, and libedit redraws the line anyway.
  std::fprintf(stdout, "%s\n", strList.c_str());  // NOLINT(cert-err33-c)
  std::fflush(stdout);                            // NOLINT(cert-err33-c)
  return CC_REDISPLAY;
}

// Ctrl-C at the prompt: drops the line being typed and gives a new prompt,
// as a login shell does, rather than ending the shell. The key shows as
// "^C" at the end of the line, and a pushed newline ends the line the usual
// way; the loop below sees the mark and runs nothing.
unsigned char CancelLine(EditLine* pEditLine, int) {
  bool* pCancelled = nullptr;
  el_get(pEditLine, EL_CLIENTDATA, &pCancelled);
  *pCancelled = true;
  const LineInfo* pLine = el_line(pEditLine);
  el_cursor(pEditLine, static_cast<int>(pLine->lastchar - pLine->cursor));
  el_insertstr(pEditLine, "^C");
  el_push(pEditLine, "\n");
  return CC_REFRESH;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) int ktl_shell_run(KtlRunWords pfnRunWords) {
  std::unique_ptr<EditLine, EditLineDeleter> editLine(el_init("ktl-cli", stdin, stdout, stderr));
  std::unique_ptr<History, HistoryDeleter> historyList(history_init());
  std::unique_ptr<Tokenizer, TokenizerDeleter> tokenizer(tok_init(nullptr));
  if (!editLine || !historyList || !tokenizer) {
    std::cerr << "ktl-cli: cannot start the shell on this terminal" << std::endl;
    return kExitUsage;
  }
  HistEvent event;
  history(historyList.get(), &event, H_SETSIZE, kHistorySize);
  history(historyList.get(), &event, H_SETUNIQUE, 1);
  const std::string strHistory = HistoryPath();
  if (!strHistory.empty()) history(historyList.get(), &event, H_LOAD, strHistory.c_str());

  EditLine* pEditLine = editLine.get();
  el_set(pEditLine, EL_EDITOR, "emacs");
  el_set(pEditLine, EL_SIGNAL, 1);
  el_set(pEditLine, EL_PROMPT, Prompt);
  el_set(pEditLine, EL_HIST, history, historyList.get());
  // The wide form: the narrow one copies the name and help text and never
  // frees the copies.
  el_wset(pEditLine, EL_ADDFN, L"ktl-complete", L"complete a command, option or value", Complete);
  el_set(pEditLine, EL_BIND, "^I", "ktl-complete", nullptr);
  // While a line is edited, the terminal passes Ctrl-C on as a key instead
  // of a signal. A command the line runs still gets the signal and ends, as
  // a one-shot ktl-cli would; its files stay whole.
  bool bCancelled = false;
  el_set(pEditLine, EL_CLIENTDATA, &bCancelled);
  el_set(pEditLine, EL_SETTY, "-d", "-isig", nullptr);
  el_wset(pEditLine, EL_ADDFN, L"ktl-cancel", L"drop the line being typed", CancelLine);
  el_set(pEditLine, EL_BIND, "^C", "ktl-cancel", nullptr);
  el_source(pEditLine, nullptr);  // the operator's ~/.editrc, as other libedit programs read it

  for (;;) {
    int nCount = 0;
    const char* pszLine = el_gets(pEditLine, &nCount);
    if (bCancelled) {
      bCancelled = false;
      continue;
    }
    if (pszLine == nullptr || nCount <= 0) {  // Ctrl-D on an empty line, or the end of input
      std::fputs("\n", stdout);               // NOLINT(cert-err33-c): the shell ends; only the prompt's line is closed
      break;
    }
    int nArgc = 0;
    const char** ppszArgv = nullptr;
    tok_reset(tokenizer.get());
    if (tok_str(tokenizer.get(), pszLine, &nArgc, &ppszArgv) != 0) {
      std::cerr << "ktl-cli: the line ends inside quotes or after a backslash" << std::endl;
      continue;
    }
    if (nArgc == 0) continue;
    std::string strEntry = pszLine;
    if (!strEntry.empty() && strEntry.back() == '\n') strEntry.pop_back();
    history(historyList.get(), &event, H_ENTER, strEntry.c_str());
    if (!strHistory.empty()) history(historyList.get(), &event, H_SAVE, strHistory.c_str());
    const std::vector<std::string> vecWords(ppszArgv, ppszArgv + nArgc);
    if (vecWords.size() == 1 && vecWords.front() == kExitWord) break;
    std::fflush(stdout);  // NOLINT(cert-err33-c): only orders the shell's output before the command's
    const int nStatus = pfnRunWords(vecWords);
    std::cout.flush();
    if (nStatus != 0) std::cerr << "exit status " << nStatus << std::endl;
  }
  return 0;
}
