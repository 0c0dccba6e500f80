// The interactive shell (see shell.h) on libedit's own interface: EditLine
// for the line, History for ~/.ktl_history, Tokenizer for the words.
#include "devhost/shell/shell.h"

#include <histedit.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>

#include "devhost/shell/history_path.h"
#include "devhost/shell/leave_question.h"
#include "devhost/shell/line_keys.h"
#include "devhost/shell/own_pending_edits.h"

namespace {

const char kPrompt[] = "ktl> ";
const char kPendingPrompt[] = "ktl [pending]> ";
const int kHistorySize = 1000;
const char* const kLeaveWords[] = {"exit", "quit"};
const char kListWord[] = "?";
const int kExitUsage = 2;

struct TokenizerDeleter {
  void operator()(Tokenizer* pTokenizer) const { tok_end(pTokenizer); }
};
struct HistoryDeleter {
  void operator()(History* pHistory) const { history_end(pHistory); }
};
struct EditLineDeleter {
  void operator()(EditLine* pEditLine) const { el_end(pEditLine); }
};

// The prompt says whether this session has edits that are not saved yet.
std::string PromptNow() { return hasOwnPendingEdits() ? kPendingPrompt : kPrompt; }

bool isLeaveWord(const std::string& strWord) {
  return std::find(std::begin(kLeaveWords), std::end(kLeaveWords), strWord) != std::end(kLeaveWords);
}

// A line whose first non-blank is "#" is a comment.
bool isComment(const char* pszLine) {
  const std::string strLine = pszLine;
  const std::string::size_type nFirst = strLine.find_first_not_of(" \t");
  return nFirst != std::string::npos && strLine[nFirst] == '#';
}

// The line again, without its last word "?", for the operator to go on
// typing; nothing when it holds a key the line editor would act on.
void OfferLineAgain(EditLine* pEditLine, std::string strLine) {
  while (!strLine.empty() && (strLine.back() == '\n' || strLine.back() == ' ' || strLine.back() == '\t')) {
    strLine.pop_back();
  }
  if (!strLine.empty()) strLine.pop_back();  // the "?"
  const bool bPlain =
      std::all_of(strLine.begin(), strLine.end(), [](unsigned char c) { return c >= ' ' && c != 0x7f && c != '?'; });
  if (bPlain && !strLine.empty()) el_push(pEditLine, strLine.c_str());
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
  const std::string strHistory = devhost::HistoryPath();
  if (!strHistory.empty()) history(historyList.get(), &event, H_LOAD, strHistory.c_str());

  EditLine* pEditLine = editLine.get();
  CLineState state;
  el_set(pEditLine, EL_EDITOR, "emacs");
  el_set(pEditLine, EL_SIGNAL, 1);
  el_set(pEditLine, EL_HIST, history, historyList.get());
  BindLineKeys(pEditLine, &state);
  el_source(pEditLine, nullptr);  // the operator's ~/.editrc, as other libedit programs read it

  for (;;) {
    state.strPrompt = PromptNow();
    int nCount = 0;
    const char* pszLine = el_gets(pEditLine, &nCount);
    if (state.bCancelled) {
      state.bCancelled = false;
      continue;
    }
    if (pszLine == nullptr || nCount <= 0) {  // Ctrl-D on an empty line, or the end of input
      std::fputs("\n", stdout);
      if (!hasOwnPendingEdits() || AgreesToLeave()) break;
      continue;
    }
    if (isComment(pszLine)) continue;
    int nArgc = 0;
    const char** ppszArgv = nullptr;
    tok_reset(tokenizer.get());
    if (tok_str(tokenizer.get(), pszLine, &nArgc, &ppszArgv) != 0) {
      std::cerr << "ktl-cli: the line ends inside quotes or after a backslash" << std::endl;
      continue;
    }
    if (nArgc == 0) continue;
    std::vector<std::string> vecWords(ppszArgv, ppszArgv + nArgc);
    // A line that ends in the word "?" asks what may come next, as the key does.
    if (vecWords.back() == kListWord) {
      vecWords.pop_back();
      ListNextWords(vecWords, "");
      OfferLineAgain(pEditLine, pszLine);
      continue;
    }
    std::string strEntry = pszLine;
    if (!strEntry.empty() && strEntry.back() == '\n') strEntry.pop_back();
    history(historyList.get(), &event, H_ENTER, strEntry.c_str());
    if (!strHistory.empty()) history(historyList.get(), &event, H_SAVE, strHistory.c_str());
    if (isLeaveWord(vecWords.front())) {
      if (vecWords.size() > 1) {
        std::cerr << "ktl-cli: \"" << vecWords.front() << "\" takes no words" << std::endl;
        continue;
      }
      if (!hasOwnPendingEdits() || AgreesToLeave()) break;
      continue;
    }
    std::fflush(stdout);
    const int nStatus = pfnRunWords(vecWords);
    std::cout.flush();
    if (nStatus != 0) std::cerr << "exit status " << nStatus << std::endl;
  }
  return 0;
}
