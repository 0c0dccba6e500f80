// A development switch for the kill tests: with KTL_FAULT_KILL_AT=N the
// process kills itself (SIGKILL) just before the N-th change it makes to a
// file (creating, writing, renaming or removing one). A test runs a command
// with N = 1, 2, ... until it runs to its end, and so stops it once at
// every step at which a crash could leave something behind.
#ifndef KTL_DEVHOST_FAULT_INJECTION_H
#define KTL_DEVHOST_FAULT_INJECTION_H

namespace devhost {

// Counts one file change about to be made; kills the process when it is the
// N-th. Does nothing when the switch is not set.
void BeforeFileChange();

}  // namespace devhost

#endif
