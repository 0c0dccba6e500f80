// Edit sessions of the logging tool's pending configuration.
//
// A session is the operator's terminal session: the POSIX session of the
// process (getsid), named by the process id of its leader, usually the login
// shell. In a container whose sessions began outside it, the leader has no
// process id inside, and its outermost process inside stands for it. Wrappers
// (timeout, sudo, even when it gives its command a terminal and a session of
// its own), subshells, pipelines and an interactive ktl-cli all run inside the
// session that started them, and two terminals are two sessions. The pending
// configuration records the session that owns it with its leader's start time,
// so that a process that later gets the same id is not taken for the session. A
// session stays the owner while its leader runs; after that, another session
// may take the edits over.
//
// Changes to the state directory are serialised by an exclusive flock on a
// lock file, so that commands started at the same moment lose no edit.
#ifndef KTL_DEVHOST_EDIT_SESSION_H
#define KTL_DEVHOST_EDIT_SESSION_H

#include <string>

#include "devhost/files/ini_store.h"

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

// The session of this process: the process id of its session leader (or of
// the process that stands for a leader outside this PID namespace), or,
// when that leader is sudo's, the session sudo was started from. Worked out
// once per command (see ForgetCurrentSession).
int CurrentSession();

// Makes the next CurrentSession work the session out again; called as a
// command starts.
void ForgetCurrentSession();

// The owner of pending edits as the pending configuration records it.
struct CSessionRecord {
  int nSession = 0;                      // the leader's process id; 0 = none recorded
  unsigned long long nLeaderStart = 0;   // its start time, 0 = unknown
  unsigned long long nPidNamespace = 0;  // inode of its PID namespace, 0 = unknown
  std::string strUser;                   // who made the edits; "" = unknown
  std::string strSince;                  // since when it has held them (local time)
};

// nSession with its PID namespace (this process's) and its leader's start
// time as they are now, and the real user; strSince is left empty.
CSessionRecord RecordOfSession(int nSession);

// True when both name the same session: same id, and namespace and start
// time equal wherever both are known.
bool isSameSession(const CSessionRecord& first, const CSessionRecord& second);

// True while the recorded session's leader runs under its id, and always
// for a session of another PID namespace, whose leader cannot be looked at.
bool isLive(const CSessionRecord& record);

// True when the record names a PID namespace other than this process's.
bool isInOtherNamespace(const CSessionRecord& record);

// The record kept in section "EditSession" of the pending configuration;
// false when none valid is there.
bool ReadSessionRecord(const IniTree& tree, CSessionRecord& record);
void PutSessionRecord(IniTree& tree, const CSessionRecord& record);

enum class PendingOwner {
  kNone,       // no pending edits
  kSession,    // the pending edits are the given session's
  kAbandoned,  // their owner has ended, or no valid owner is recorded
  kOther,      // another session, still alive, owns them
};

}  // namespace devhost

#endif
