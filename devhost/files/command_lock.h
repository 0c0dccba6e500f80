// Whole commands on one state directory, one at a time.
//
// A command makes several service calls that belong together: the plug-in
// reads how many mount points there are, then writes the next entry. ktl-cli
// therefore holds the command lock ("ktl-cli.lock" in the state directory)
// from the command's construction to the end of its commit, so that commands
// started at the same moment run one after the other. It is the state
// directory's one lock: the service answers a command's calls from what it
// read under it (devhost/service/state_view.h). While a command waits for
// the operator's answer to a question the lock is let go, so that a question
// left open in one shell does not hold up every other shell; what was read
// before it must then be read again.
#ifndef KTL_DEVHOST_COMMAND_LOCK_H
#define KTL_DEVHOST_COMMAND_LOCK_H

#include <string>

#include "devhost/service/edit_session.h"

namespace devhost {

// Holds the command lock of devhost::StateDir() from Acquire until
// destruction. One per process.
class CCommandLock {
 public:
  CCommandLock() = default;
  ~CCommandLock();
  CCommandLock(const CCommandLock&) = delete;
  CCommandLock& operator=(const CCommandLock&) = delete;

  // Creates the state directory when needed and blocks until the lock is
  // held. False, with strError set, when that fails.
  bool Acquire(std::string& strError);

 private:
  CStateLock m_lock;
  bool m_bRegistered = false;
};

// Lets the command lock go for its lifetime, if this process holds it, and
// takes it again at the end (waiting for it like Acquire).
class CCommandLockReleased {
 public:
  CCommandLockReleased();
  ~CCommandLockReleased();
  CCommandLockReleased(const CCommandLockReleased&) = delete;
  CCommandLockReleased& operator=(const CCommandLockReleased&) = delete;

 private:
  CStateLock* m_pReleased;
};

// True while this process holds the command lock (not while a question has
// let it go).
bool isCommandLockHeld();

// Counts the times this process has taken the command lock, a question's
// retaking included: what was read under one holding holds as long as this
// number stays the same.
unsigned long CommandLockHolding();

// Removes the temporary files that killed commands left in the state
// directory (devhost/files/leftovers.h), once per holding of the lock: a
// command does it before it replaces its first file there, so that a
// command that only reads does not pay for the directory scan.
void RemoveStateLeftovers();

}  // namespace devhost

#endif
