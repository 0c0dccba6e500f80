#include "devhost/service/edit_session.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <cstdlib>
#include <sstream>
#include <iostream>

#include "devhost/files/ini_store.h"
#include "devhost/files/lock_file.h"

namespace devhost {

CStateLock::~CStateLock() {
  // Closing the file releases the lock.
  if (m_nFd >= 0) close(m_nFd);
}

bool CStateLock::Acquire(const std::string& strLockFile, std::string& strError) {
  if (m_nFd >= 0) return true;
  int nFd = -1;
  switch (OpenLockFile(strLockFile, nFd, strError)) {
    case LockOpen::kOpened:
      break;
    case LockOpen::kNotNeeded:
      return true;
    case LockOpen::kFailed:
      return false;
  }
  if (!LockWaiting(nFd, strLockFile, false, strError)) {
    close(nFd);
    return false;
  }
  m_nFd = nFd;
  m_strFile = strLockFile;
  return true;
}

void CStateLock::Unlock() {
  if (m_nFd >= 0) flock(m_nFd, LOCK_UN);
}

// The command already ran part of its work under this lock: it waits for
// it however long that takes rather than stop halfway.
void CStateLock::Relock() {
  std::string strError;
  if (m_nFd >= 0 && !LockWaiting(m_nFd, m_strFile, true, strError)) std::cerr << "ktl-cli: " << strError << std::endl;
}

bool isProcessAlive(int nProcessId) {
  if (nProcessId < 1) return false;
  return kill(nProcessId, 0) == 0 || errno == EPERM;
}

bool hasPendingEdits(const std::string& strPendingFile) {
  struct stat st;
  return stat(strPendingFile.c_str(), &st) == 0 && st.st_size > 0;
}

namespace {

// The start time of process nProcessId in clock ticks after boot (the 22nd
// field of /proc/PID/stat); 0 when it cannot be read. With the id it names
// one process: an ended process's id is reused sooner or later (after a
// reboot, most ids are), but not with the same start time.
unsigned long long ProcessStartTime(int nProcessId) {
  std::string strStat, strError;
  if (nProcessId < 1 ||
      ReadTextFile("/proc/" + std::to_string(nProcessId) + "/stat", strStat, strError) != IniRead::kOk) {
    return 0;
  }
  // The second field, the command name in parentheses, may itself hold
  // blanks and parentheses: the third field follows its last ")".
  const std::string::size_type nNameEnd = strStat.rfind(')');
  if (nNameEnd == std::string::npos) return 0;
  const char* pszField = strStat.c_str() + nNameEnd + 1;
  for (int nField = 3; nField <= 22; ++nField) {
    pszField = std::strchr(pszField, ' ');
    if (!pszField) return 0;
    ++pszField;
  }
  return std::strtoull(pszField, nullptr, 10);
}

// An owner record: "PID START\n", or "PID\n" when the start time could not
// be read. nStartTime 0 = not recorded.
struct COwnerRecord {
  int nProcessId = 0;
  unsigned long long nStartTime = 0;
};

bool ReadOwnerRecord(const std::string& strOwnerFile, COwnerRecord& owner) {
  std::string strText, strError;
  if (ReadTextFile(strOwnerFile, strText, strError) != IniRead::kOk) return false;
  std::istringstream file(strText);
  COwnerRecord read;
  std::string strRest;
  if (!(file >> read.nProcessId) || read.nProcessId < 1) return false;
  if (!(file >> read.nStartTime)) {
    if (!file.eof()) return false;
    read.nStartTime = 0;
  } else if (file >> strRest) {
    return false;
  }
  owner = read;
  return true;
}

// True while the recorded process runs under its id. When its start time
// cannot be read now (another user's process under a /proc mounted with
// hidepid, say), the id alone decides: a live session must not lose its
// edits to another.
bool isRunning(const COwnerRecord& owner) {
  if (!isProcessAlive(owner.nProcessId)) return false;
  if (owner.nStartTime == 0) return true;
  const unsigned long long nNow = ProcessStartTime(owner.nProcessId);
  return nNow == 0 || nNow == owner.nStartTime;
}

}  // namespace

PendingOwner WhoOwnsPending(const std::string& strPendingFile, const std::string& strOwnerFile, int nSession) {
  if (!hasPendingEdits(strPendingFile)) return PendingOwner::kNone;
  COwnerRecord owner;
  if (!ReadOwnerRecord(strOwnerFile, owner) || !isRunning(owner)) return PendingOwner::kAbandoned;
  return owner.nProcessId == nSession ? PendingOwner::kSession : PendingOwner::kOther;
}

bool ReadOwner(const std::string& strOwnerFile, int& nSession) {
  COwnerRecord owner;
  if (!ReadOwnerRecord(strOwnerFile, owner)) return false;
  nSession = owner.nProcessId;
  return true;
}

bool WriteOwner(const std::string& strOwnerFile, int nSession, std::string& strError) {
  std::string strRecord = std::to_string(nSession);
  if (const unsigned long long nStartTime = ProcessStartTime(nSession)) strRecord += " " + std::to_string(nStartTime);
  // Sessions end with a reboot, so the record need not survive one.
  return WriteFileAtomically(strOwnerFile, strRecord + "\n", strError, Flush::kNone);
}

}  // namespace devhost
