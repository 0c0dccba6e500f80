// The words of a command line checked against the command's description
// (command_description.h): which word is wrong and what was expected there.
// ktl-cli uses it to explain a refusal when the plug-in named no word.
//
// The words are grouped as the host groups them: a word that starts with "-"
// is an option, the next word that does not is its value. The first option
// selects the form (in any case); the form's options without brackets follow
// in their order, then those in brackets in any order.
#ifndef KTL_DEVHOST_HELP_COMMAND_GRAMMAR_H
#define KTL_DEVHOST_HELP_COMMAND_GRAMMAR_H

#include <string>
#include <vector>

#include "devhost/help/command_description.h"

namespace devhost {

struct CWordPair {
  std::string strOption;
  std::string strValue;
  // "-alert inf", or "-save" without a value.
  std::string Typed() const { return strValue.empty() ? strOption : strOption + " " + strValue; }
};

// The pairs of vecWords. False, with the value that has no option before it
// in strStray, when the words cannot be grouped.
bool GroupWords(const std::vector<std::string>& vecWords, std::vector<CWordPair>& vecPairs, std::string& strStray);

// The form the first pair selects, or nullptr.
const CFormDescription* SelectedForm(const CCommandDescription& description, const std::vector<CWordPair>& vecPairs);

// What is wrong with the words. strKind is empty when nothing is, else one of
//   no_option        no words; expected: the options a command starts with
//   stray            word: a value with no option before it
//   unknown_first    option: the first option is no option of the command
//   misplaced_first  option: an option of the command, but not a first one
//   missing          expected: the option (with its values) that must follow
//                    previous, the last pair given
//   unknown          option: no option of the command; expected: what may
//                    stand there, after previous
//   misplaced        option: an option of the command that may not stand there
//   extra            option: a pair after a form that takes no more
//   no_value         option: it needs a value; expected: what values
struct CGrammarFinding {
  std::string strKind;
  std::string strOption;
  std::string strWord;
  std::string strExpected;
  std::string strPrevious;
};

CGrammarFinding CheckGrammar(const CCommandDescription& description, const std::vector<std::string>& vecWords);

// "a", "a or b", "a, b or c".
std::string Alternatives(const std::vector<std::string>& vecWords);

// An option as the synopsis shows it: "-setting on|off", "[-interval N]".
std::string OptionSynopsis(const COptionDescription& option);

}  // namespace devhost

#endif
