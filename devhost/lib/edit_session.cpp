#include "devhost/lib/edit_session.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>

#include "devhost/lib/ini_store.h"

namespace devhost {

namespace {

// Blocks until the exclusive lock on nFd is held; false (errno set) when it
// cannot be taken.
bool LockExclusively(int nFd) {
  while (flock(nFd, LOCK_EX) != 0) {
    if (errno != EINTR) return false;
  }
  return true;
}

}  // namespace

CStateLock::~CStateLock() {
  // Closing the file releases the lock.
  if (m_nFd >= 0) close(m_nFd);
}

bool CStateLock::Acquire(const std::string& strLockFile, std::string& strError) {
  if (m_nFd >= 0) return true;
  const int nFd = open(strLockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  if (nFd < 0) {
    strError = "cannot open lock file " + strLockFile + ": " + std::strerror(errno);
    return false;
  }
  if (!LockExclusively(nFd)) {
    strError = "cannot lock " + strLockFile + ": " + std::strerror(errno);
    close(nFd);
    return false;
  }
  m_nFd = nFd;
  return true;
}

void CStateLock::Unlock() {
  if (m_nFd >= 0) flock(m_nFd, LOCK_UN);
}

void CStateLock::Relock() {
  if (m_nFd >= 0) LockExclusively(m_nFd);
}

bool isProcessAlive(int nProcessId) {
  if (nProcessId < 1) return false;
  return kill(nProcessId, 0) == 0 || errno == EPERM;
}

bool hasPendingEdits(const std::string& strPendingFile) {
  struct stat st;
  return stat(strPendingFile.c_str(), &st) == 0 && st.st_size > 0;
}

PendingOwner WhoOwnsPending(const std::string& strPendingFile, const std::string& strOwnerFile, int nSession) {
  if (!hasPendingEdits(strPendingFile)) return PendingOwner::kNone;
  int nOwner = 0;
  if (!ReadOwner(strOwnerFile, nOwner)) return PendingOwner::kAbandoned;
  if (nOwner == nSession) return PendingOwner::kSession;
  return isProcessAlive(nOwner) ? PendingOwner::kOther : PendingOwner::kAbandoned;
}

bool ReadOwner(const std::string& strOwnerFile, int& nSession) {
  std::ifstream file(strOwnerFile);
  int nRead = 0;
  std::string strRest;
  if (!(file >> nRead) || (file >> strRest) || nRead < 1) return false;
  nSession = nRead;
  return true;
}

bool WriteOwner(const std::string& strOwnerFile, int nSession, std::string& strError) {
  // Sessions end with a reboot, so the record need not survive one.
  return WriteFileAtomically(strOwnerFile, std::to_string(nSession) + "\n", strError, Flush::kNone);
}

}  // namespace devhost
