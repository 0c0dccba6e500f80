// Edit sessions of the logging tool's pending configuration.
//
// A session is an operator's shell, named by its process id. The pending
// configuration belongs to the session that created it; the owner file
// beside it holds that session's id and its start time, in decimal, so that
// a process that later gets the same id is not taken for the session. Another session may take the
// pending edits over only once the owner's process has ended, so two shells
// editing at once cannot mix their edits.
//
// Changes to the state directory are serialised by an exclusive flock on a
// lock file, so that commands started at the same moment lose no edit.
#ifndef KTL_DEVHOST_EDIT_SESSION_H
#define KTL_DEVHOST_EDIT_SESSION_H

#include <string>

namespace devhost {

// Holds the exclusive lock on a lock file from Acquire until destruction.
// The lock is tied to this object's open file, so a second CStateLock on the
// same file in the same process waits like any other process would.
class CStateLock {
 public:
  CStateLock() = default;
  ~CStateLock();
  CStateLock(const CStateLock&) = delete;
  CStateLock& operator=(const CStateLock&) = delete;

  // Creates strLockFile when needed and waits until the lock is held (see
  // devhost::LockWaiting). False, with strError set, when the file cannot be
  // opened or locked. On a read-only directory without a lock file nothing
  // can change, and Acquire succeeds without a lock.
  bool Acquire(const std::string& strLockFile, std::string& strError);

  // Lets the held lock go while keeping the file open, and takes it again
  // (blocking). Both do nothing before a successful Acquire.
  void Unlock();
  void Relock();

 private:
  int m_nFd = -1;
  std::string m_strFile;
};

// True when a process nProcessId exists (even one this process may not
// signal). Ids below 1 name no single process and count as ended.
bool isProcessAlive(int nProcessId);

enum class PendingOwner {
  kNone,       // no pending edits
  kSession,    // the pending edits are the given session's
  kAbandoned,  // their owner has ended, or no valid owner is recorded
  kOther,      // another session, still alive, owns them
};

// True when strPendingFile holds pending edits. An empty file counts as
// none: a pending configuration is never written empty, and an empty one is
// what a power cut can leave of an edit that had not reached the disk.
bool hasPendingEdits(const std::string& strPendingFile);

// Who holds the pending edits, as seen by session nSession.
PendingOwner WhoOwnsPending(const std::string& strPendingFile, const std::string& strOwnerFile, int nSession);

// The session recorded in strOwnerFile; false when none is (missing file or
// no valid id in it).
bool ReadOwner(const std::string& strOwnerFile, int& nSession);

// Records nSession as the owner, atomically. False, with strError set, on
// failure.
bool WriteOwner(const std::string& strOwnerFile, int nSession, std::string& strError);

}  // namespace devhost

#endif
