#include "devhost/service/edit_session.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "devhost/files/ini_store.h"
#include "devhost/files/lock_file.h"
#include "devhost/utilities/timestamp.h"
#include "devhost/utilities/user_name.h"

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

namespace {

const char kSessionSection[] = "EditSession";
const char kSessionKey[] = "Session";
const char kLeaderStartKey[] = "LeaderStart";
const char kPidNamespaceKey[] = "PidNamespace";
const char kUserKey[] = "User";
const char kSinceKey[] = "Since";

// True when a process nProcessId exists (even one this process may not
// signal). Ids below 1 name no single process and count as ended.
bool isProcessAlive(int nProcessId) {
  if (nProcessId < 1) return false;
  return kill(nProcessId, 0) == 0 || errno == EPERM;
}

// What /proc/PID/stat tells of a process: its command name (the executable's
// file name, at most 15 bytes), its parent and its start time in clock ticks
// after boot. With the id, the start time names one process: an ended
// process's id is reused sooner or later (after a reboot, most ids are), but
// not with the same start time. False when the process cannot be read.
struct CProcessStat {
  std::string strName;
  int nParent = 0;
  unsigned long long nStartTime = 0;
};

bool ReadProcessStat(int nProcessId, CProcessStat& stat) {
  std::string strStat, strError;
  if (nProcessId < 1 ||
      ReadTextFile("/proc/" + std::to_string(nProcessId) + "/stat", strStat, strError) != IniRead::kOk) {
    return false;
  }
  // The second field, the command name in parentheses, may itself hold
  // blanks and parentheses: the third field follows its last ")".
  const std::string::size_type nNameStart = strStat.find('(');
  const std::string::size_type nNameEnd = strStat.rfind(')');
  if (nNameStart == std::string::npos || nNameEnd == std::string::npos || nNameEnd < nNameStart) return false;
  stat.strName = strStat.substr(nNameStart + 1, nNameEnd - nNameStart - 1);
  const char* pszField = strStat.c_str() + nNameEnd + 1;
  for (int nField = 3; nField <= 22; ++nField) {
    pszField = std::strchr(pszField, ' ');
    if (!pszField) return false;
    ++pszField;
    if (nField == 4) stat.nParent = static_cast<int>(std::strtol(pszField, nullptr, 10));
  }
  stat.nStartTime = std::strtoull(pszField, nullptr, 10);
  return true;
}

unsigned long long ProcessStartTime(int nProcessId) {
  CProcessStat stat;
  return ReadProcessStat(nProcessId, stat) ? stat.nStartTime : 0;
}

// The whole of strText as a decimal number; false when it is not one.
bool ParseDecimal(const std::string* pText, unsigned long long& nValue) {
  if (!pText || pText->empty() || pText->size() > 20 || pText->find_first_not_of("0123456789") != std::string::npos)
    return false;
  errno = 0;
  nValue = std::strtoull(pText->c_str(), nullptr, 10);
  return errno == 0;
}

// The session of process nProcessId. Inside a PID namespace (a container,
// say) entered from a session outside it, getsid answers 0: the leader has
// no id here. The session then goes by its outermost process that does, the
// one whose parent lies outside the namespace.
int SessionOfProcess(int nProcessId) {
  const int nSession = static_cast<int>(getsid(nProcessId));
  if (nSession >= 1) return nSession;
  int nOutermost = nProcessId;
  CProcessStat stat;
  while (ReadProcessStat(nOutermost, stat) && stat.nParent >= 1 && getsid(stat.nParent) == 0) nOutermost = stat.nParent;
  return nOutermost;
}

// The PID namespace of this process, by the inode of /proc/self/ns/pid; 0
// when it cannot be told (no /proc).
unsigned long long OwnPidNamespace() {
  struct stat st;
  return stat("/proc/self/ns/pid", &st) == 0 ? static_cast<unsigned long long>(st.st_ino) : 0;
}

// sudo set to run its command on a terminal of its own (use_pty, Debian's
// default) makes a session for it, led by a sudo process; the operator's
// session is the one that sudo was started from. The leader's start time
// comes with it, read on the way.
CSessionRecord WorkOutCurrentSession() {
  CSessionRecord record;
  int nSession = SessionOfProcess(static_cast<int>(getpid()));
  CProcessStat leader;
  bool bRead = ReadProcessStat(nSession, leader);
  while (bRead && leader.strName == "sudo" && leader.nParent >= 1) {
    const int nOuter = SessionOfProcess(leader.nParent);
    if (nOuter < 1 || nOuter == nSession) break;
    nSession = nOuter;
    bRead = ReadProcessStat(nSession, leader);
  }
  record.nSession = nSession;
  record.nLeaderStart = bRead ? leader.nStartTime : 0;
  record.nPidNamespace = OwnPidNamespace();
  record.strUser = RealUserName();
  return record;
}

// The session of this command, once worked out.
struct CCurrentSessionCache {
  bool bKnown = false;
  CSessionRecord record;
};

CCurrentSessionCache& CurrentSessionCache() {
  static CCurrentSessionCache cache;
  return cache;
}

const CSessionRecord& CurrentSessionRecord() {
  CCurrentSessionCache& cache = CurrentSessionCache();
  if (!cache.bKnown) {
    cache.record = WorkOutCurrentSession();
    cache.bKnown = true;
  }
  return cache.record;
}

bool isSameOrUnknown(unsigned long long nFirst, unsigned long long nSecond) {
  return nFirst == 0 || nSecond == 0 || nFirst == nSecond;
}

}  // namespace

int CurrentSession() { return CurrentSessionRecord().nSession; }

void ForgetCurrentSession() { CurrentSessionCache().bKnown = false; }

CSessionRecord RecordOfSession(int nSession) {
  if (nSession == CurrentSession()) return CurrentSessionRecord();
  CSessionRecord record;
  record.nSession = nSession;
  record.nLeaderStart = ProcessStartTime(nSession);
  record.nPidNamespace = CurrentSessionRecord().nPidNamespace;
  record.strUser = RealUserName();
  return record;
}

bool isSameSession(const CSessionRecord& first, const CSessionRecord& second) {
  return first.nSession == second.nSession && isSameOrUnknown(first.nPidNamespace, second.nPidNamespace) &&
         isSameOrUnknown(first.nLeaderStart, second.nLeaderStart);
}

bool isInOtherNamespace(const CSessionRecord& record) {
  const unsigned long long nOwn = CurrentSessionRecord().nPidNamespace;
  return record.nPidNamespace != 0 && nOwn != 0 && record.nPidNamespace != nOwn;
}

// When the leader's start time cannot be read now (another user's process
// under a /proc mounted with hidepid, say), the id alone decides: a live
// session must not lose its edits to another.
bool isLive(const CSessionRecord& record) {
  if (isInOtherNamespace(record)) return true;
  if (!isProcessAlive(record.nSession)) return false;
  if (record.nLeaderStart == 0) return true;
  const unsigned long long nNow = ProcessStartTime(record.nSession);
  return nNow == 0 || nNow == record.nLeaderStart;
}

bool ReadSessionRecord(const IniTree& tree, CSessionRecord& record) {
  unsigned long long nSession = 0, nStart = 0;
  if (!ParseDecimal(FindIniValue(tree, kSessionSection, kSessionKey), nSession) || nSession < 1 ||
      nSession > 0x7fffffff) {
    return false;
  }
  unsigned long long nNamespace = 0;
  const std::string* pStart = FindIniValue(tree, kSessionSection, kLeaderStartKey);
  if (pStart && !ParseDecimal(pStart, nStart)) return false;
  const std::string* pNamespace = FindIniValue(tree, kSessionSection, kPidNamespaceKey);
  if (pNamespace && !ParseDecimal(pNamespace, nNamespace)) return false;
  record.nSession = static_cast<int>(nSession);
  record.nLeaderStart = nStart;
  record.nPidNamespace = nNamespace;
  const std::string* pUser = FindIniValue(tree, kSessionSection, kUserKey);
  record.strUser = pUser ? *pUser : std::string();
  const std::string* pSince = FindIniValue(tree, kSessionSection, kSinceKey);
  record.strSince = pSince ? *pSince : std::string();
  return true;
}

void PutSessionRecord(IniTree& tree, const CSessionRecord& record) {
  tree.erase(kSessionSection);
  SetIniValue(tree, kSessionSection, kSessionKey, std::to_string(record.nSession));
  if (record.nLeaderStart != 0)
    SetIniValue(tree, kSessionSection, kLeaderStartKey, std::to_string(record.nLeaderStart));
  if (record.nPidNamespace != 0)
    SetIniValue(tree, kSessionSection, kPidNamespaceKey, std::to_string(record.nPidNamespace));
  // Names and times only go where they read back unchanged.
  std::string strIgnored;
  if (!record.strUser.empty() && isStorableIniEntry(kSessionSection, kUserKey, record.strUser, strIgnored))
    SetIniValue(tree, kSessionSection, kUserKey, record.strUser);
  if (!record.strSince.empty() && isStorableIniEntry(kSessionSection, kSinceKey, record.strSince, strIgnored))
    SetIniValue(tree, kSessionSection, kSinceKey, record.strSince);
}

}  // namespace devhost
