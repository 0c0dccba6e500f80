// The shell's keys on the line being edited: Tab completes the word at the
// cursor, "?" lists the words that may come next with what they mean and
// leaves the line as typed (Ctrl-V ? types a question mark), Ctrl-C drops the
// line. What may come next is devhost::NextWords for the words before the
// cursor.
#ifndef KTL_DEVHOST_SHELL_LINE_KEYS_H
#define KTL_DEVHOST_SHELL_LINE_KEYS_H

#include <histedit.h>

#include <string>
#include <vector>

// What the shell and its keys share, the EditLine's client data.
struct CLineState {
  bool bCancelled = false;  // Ctrl-C dropped the line just read
  std::string strPrompt;    // shown before the line
};

// Binds the keys above; pState must outlive pEditLine.
void BindLineKeys(EditLine* pEditLine, CLineState* pState);

// Prints on standard output the words that may follow vecBefore, each with
// its meaning, one a line.
void ListNextWords(const std::vector<std::string>& vecBefore, const std::string& strPrefix);

#endif
