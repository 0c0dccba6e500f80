// What may be typed next on a command line, from the installed commands and
// their descriptions (command_description.h), following each form's
// grammar: at the top level the command names and ktl-cli's own words; then
// the first options of the command's forms; then the form's required
// options one by one in their order, and after them the optional ones not
// given yet (none after a value that ends the form, such as "-setting
// off"); in a value's place the values of its set, the mounted file systems
// for a mount point, or the range in force of a number. The shell's Tab and
// "?" keys and bash completion (`ktl-cli --complete`) all use it.
#ifndef KTL_DEVHOST_HELP_COMPLETION_H
#define KTL_DEVHOST_HELP_COMPLETION_H

#include <string>
#include <vector>

#include "devhost/help/place.h"

namespace devhost {

struct CNextWord {
  std::string strWord;     // "-setting", "inf", or a range such as "<10-100>"
  std::string strMeaning;  // one line; may be empty
  // A range stands for the numbers it holds: it is shown, never typed.
  bool isRange() const { return !strWord.empty() && strWord.front() == '<'; }
};

// The words that may stand where strPrefix is being typed, after the words
// vecBefore ("logger", "-device", ...), in the grammar's order. Values and
// options match strPrefix in any case, mount points exactly; a range is
// offered whatever the prefix. Nothing when the words before do not fit
// the grammar.
std::vector<CNextWord> NextWords(const std::vector<std::string>& vecBefore, const std::string& strPrefix, Place ePlace);

// The words of NextWords alone.
std::vector<std::string> CompletionCandidates(const std::vector<std::string>& vecBefore, const std::string& strPrefix,
                                              Place ePlace);

}  // namespace devhost

#endif
