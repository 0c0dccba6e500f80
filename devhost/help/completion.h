// Completion of a command line from the installed commands and their
// descriptions (command_description.h): command names, then the first
// options of the command's forms, then the options of the chosen form not
// given yet, and the fixed values of an option. The shell's Tab key and
// bash completion (`ktl-cli --complete`) both use it.
#ifndef KTL_DEVHOST_HELP_COMPLETION_H
#define KTL_DEVHOST_HELP_COMPLETION_H

#include <string>
#include <vector>

namespace devhost {

// The words that may stand where strPrefix is being typed, after the words
// vecBefore ("logger", "-device", ...), each starting with strPrefix, sorted.
// The word "help" counts as a command; after it come command names.
std::vector<std::string> CompletionCandidates(const std::vector<std::string>& vecBefore, const std::string& strPrefix);

}  // namespace devhost

#endif
