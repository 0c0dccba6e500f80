// The pending logger configuration against the one in effect, as the
// running command sees them: what `ktl-cli compare logger` lists and what
// the save and discard questions tell before they ask.
#ifndef KTL_DEVHOST_PENDING_COMPARISON_H
#define KTL_DEVHOST_PENDING_COMPARISON_H

#include <string>
#include <vector>

namespace devhost {

struct CPendingComparison {
  bool bHasEdits = false;               // a pending configuration exists
  std::vector<std::string> vecChanges;  // devhost::DescribeChanges, one line per item
};

// Reads the configuration in effect (the shipped default before the first
// save) and the pending one, each checked as the service checks it. The
// caller holds the command lock. False, with strError naming the file and
// what is wrong, when either cannot be used.
bool ComparePending(CPendingComparison& comparison, std::string& strError);

// "→" where the locale's character set is UTF-8, "->" elsewhere.
std::string ChangeArrow();

}  // namespace devhost

#endif
