// Development switches for the fault tests.
//
// With KTL_FAULT_KILL_AT=N the process kills itself (SIGKILL) just before
// the N-th change it makes to a file (creating, writing, renaming or
// removing one). A test runs a command with N = 1, 2, ... until it runs to
// its end, and so stops it once at every step at which a crash could leave
// something behind.
//
// With KTL_FAULT_OPEN=PATTERN:ERROR, where ERROR is EACCES, ENOSPC or EIO,
// every opening or creation of a file that PATTERN matches fails with that
// error, as a changed permission or a full disk would make it fail, even
// for root. PATTERN is a shell pattern (fnmatch) for the file's name, or
// for its whole path when it holds a "/": "audit.log", "*/tmp/ktl-cmd-*".
#ifndef KTL_DEVHOST_FAULT_INJECTION_H
#define KTL_DEVHOST_FAULT_INJECTION_H

#include <string>

namespace devhost {

// Counts one file change about to be made; kills the process when it is the
// N-th. Does nothing when the switch is not set.
void BeforeFileChange();

// The error that opening or creating strPath (for a temporary file, its
// mkstemp template) is to fail with, or 0.
int InjectedOpenError(const std::string& strPath);

}  // namespace devhost

#endif
