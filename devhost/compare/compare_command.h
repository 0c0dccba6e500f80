// `ktl-cli compare COMMAND`: every difference between the configuration in
// effect and the pending one, one line per changed item.
#ifndef KTL_DEVHOST_COMPARE_COMMAND_H
#define KTL_DEVHOST_COMPARE_COMMAND_H

#include <iosfwd>
#include <string>
#include <vector>

namespace devhost {

// The word that starts a comparison, in one-shot use and in the shell.
extern const char kCompareWord[];
// The one command whose configurations can be compared.
extern const char kComparedCommand[];

// Runs `compare` with the words after it (only "logger" can be compared).
// Holds the command lock while it reads. Returns the exit status: 0 when the
// comparison was shown, 1 when a configuration could not be read (said on
// err), 2 for wrong words.
int RunCompare(const std::vector<std::string>& vecWords, std::ostream& out, std::ostream& err);

}  // namespace devhost

#endif
