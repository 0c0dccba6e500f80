#include "devhost/files/lock_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>

#include "devhost/command/interrupt.h"
#include "devhost/files/paths.h"
#include "devhost/files/safe_open.h"

namespace devhost {
namespace {

const long kFirstPollMicroseconds = 1000;
const long kLongestPollMicroseconds = 50000;
const double kQuietWaitSeconds = 1.0;

double MonotonicSeconds() {
  struct timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

// The process that holds a flock on the file nFd, from /proc/locks; 0 when
// it cannot be told. Lines look like
//   "3: FLOCK  ADVISORY  WRITE 1234 08:01:5678 0 EOF"
// and waiting requests carry "->" after the number.
long LockHolder(int nFd) {
  struct stat st;
  if (fstat(nFd, &st) != 0) return 0;
  std::ostringstream id;
  id << std::hex;
  id.width(2);
  id.fill('0');
  id << major(st.st_dev) << ':';
  id.width(2);
  id << minor(st.st_dev) << ':' << std::dec << st.st_ino;
  std::ifstream locks("/proc/locks");
  std::string strLine;
  while (std::getline(locks, strLine)) {
    std::istringstream fields(strLine);
    std::string strNumber, strKind, strAdvisory, strMode, strFileId;
    long nPid = 0;
    if (!(fields >> strNumber >> strKind) || strKind != "FLOCK") continue;
    if (fields >> strAdvisory >> strMode >> nPid >> strFileId && strFileId == id.str()) return nPid;
  }
  return 0;
}

std::string HolderText(int nFd) {
  const long nHolder = LockHolder(nFd);
  return nHolder > 0 ? "another command (pid " + std::to_string(nHolder) + ")" : std::string("another command");
}

}  // namespace

LockOpen OpenLockFile(const std::string& strLockFile, int& nFd, std::string& strError) {
  nFd = OpenTrusted(strLockFile, O_RDWR | O_CREAT, 0600, strError);
  if (nFd >= 0) return LockOpen::kOpened;
  if (errno != EROFS && errno != EACCES) return LockOpen::kFailed;
  std::string strReadOnlyError;
  nFd = OpenTrusted(strLockFile, O_RDONLY, 0, strReadOnlyError);
  if (nFd >= 0) return LockOpen::kOpened;
  if (errno == ENOENT) return LockOpen::kNotNeeded;
  strError = strReadOnlyError;
  return LockOpen::kFailed;
}

bool LockWaiting(int nFd, const std::string& strLockFile, bool bWaitForEver, std::string& strError) {
  const double fStart = MonotonicSeconds();
  const unsigned nTimeout = LockTimeoutSeconds();
  long nPollMicroseconds = kFirstPollMicroseconds;
  bool bToldWaiting = false;
  while (flock(nFd, LOCK_EX | LOCK_NB) != 0) {
    if (errno == EINTR) continue;
    if (errno != EWOULDBLOCK) {
      strError = "cannot lock " + strLockFile + ": " + std::strerror(errno);
      return false;
    }
    // A command that already did part of its work waits for ever, even
    // through Ctrl-C, rather than go on without the lock.
    if (!bWaitForEver && isInterrupted()) {
      strError = "interrupted while waiting for " + strLockFile + ", held by " + HolderText(nFd);
      return false;
    }
    const double fWaited = MonotonicSeconds() - fStart;
    if (!bWaitForEver && fWaited >= nTimeout) {
      strError = "gave up waiting for " + strLockFile + " after " + std::to_string(nTimeout) + " s: it is held by " +
                 HolderText(nFd) + " (KTL_LOCK_TIMEOUT sets the wait)";
      return false;
    }
    if (!bToldWaiting && fWaited >= kQuietWaitSeconds) {
      std::cerr << "ktl-cli: waiting for " << strLockFile << ", held by " << HolderText(nFd) << std::endl;
      bToldWaiting = true;
    }
    usleep(static_cast<useconds_t>(nPollMicroseconds));
    nPollMicroseconds = std::min(nPollMicroseconds * 2, kLongestPollMicroseconds);
  }
  return true;
}

}  // namespace devhost
