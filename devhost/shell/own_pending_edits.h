// Whether the shell's own session has pending edits, for its prompt and its
// question on leaving.
#ifndef KTL_DEVHOST_SHELL_OWN_PENDING_EDITS_H
#define KTL_DEVHOST_SHELL_OWN_PENDING_EDITS_H

// True when the logging tool's pending configuration holds edits that
// belong to this process's session, the shell's. Reads the pending
// configuration as it is, without the state lock and without changing
// anything; false when there is none or it cannot be read.
bool hasOwnPendingEdits();

#endif
