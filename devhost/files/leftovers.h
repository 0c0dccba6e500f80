// Temporary files that killed commands leave behind.
//
// Every temporary file of the host carries the id of the process that made
// it: "<prefix><pid>.XXXXXX". A later command removes such files of its own
// naming pattern when the caller owns them and they are either old (no
// command runs that long) or their process has ended, so that kills do not
// pile files up and nothing of a running command or of another user is
// touched.
#ifndef KTL_DEVHOST_LEFTOVERS_H
#define KTL_DEVHOST_LEFTOVERS_H

#include <string>

namespace devhost {

// The mkstemp template for a temporary file of this process:
// strPrefix + "<pid>.XXXXXX".
std::string TempFileTemplate(const std::string& strPrefix);

// Removes the leftovers in strDir whose names are <strPrefix><pid>.XXXXXX
// (bPrefixIsWholeStart) or <any name><strPrefix><pid>.XXXXXX. Failures are
// ignored: a leftover that stays is tried again by the next command.
void RemoveLeftovers(const std::string& strDir, const std::string& strPrefix, bool bPrefixIsWholeStart);

}  // namespace devhost

#endif
