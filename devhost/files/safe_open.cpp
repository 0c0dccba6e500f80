#include "devhost/files/safe_open.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "devhost/files/fault_injection.h"

namespace devhost {
namespace {

std::string OctalMode(mode_t nMode) {
  char buffer[8];
  // NOLINTNEXTLINE(cert-err33-c): four octal digits always fit.
  std::snprintf(buffer, sizeof buffer, "%04o", static_cast<unsigned>(nMode & 07777));
  return buffer;
}

// What is wrong with an object of the given status, or "" when nothing is.
std::string TrustProblem(const struct stat& st) {
  const uid_t nCaller = CallerUid();
  if (st.st_uid != nCaller && st.st_uid != 0) {
    return "it belongs to uid " + std::to_string(st.st_uid) + ", not to you (uid " + std::to_string(nCaller) + ")";
  }
  if (st.st_mode & (S_IWGRP | S_IWOTH)) {
    return "group or others can write it (mode " + OctalMode(st.st_mode) + "; chmod go-w fixes that)";
  }
  return std::string();
}

// What a file of this type is, for a refusal: "a FIFO", "a directory".
std::string KindName(mode_t nMode) {
  if (S_ISFIFO(nMode)) return "a FIFO";
  if (S_ISSOCK(nMode)) return "a socket";
  if (S_ISDIR(nMode)) return "a directory";
  if (S_ISCHR(nMode)) return "a character device";
  if (S_ISBLK(nMode)) return "a block device";
  if (S_ISLNK(nMode)) return "a symbolic link";
  return "not a regular file";
}

bool isAcceptedKind(mode_t nMode, FileKind eKind) {
  return S_ISREG(nMode) || (eKind == FileKind::kRegularOrTerminal && S_ISCHR(nMode));
}

std::string KindRefusal(const std::string& strPath, mode_t nMode, FileKind eKind) {
  return "refusing " + strPath + ": it is " + KindName(nMode) +
         (eKind == FileKind::kRegular ? ", not a regular file" : ", neither a regular file nor a character device");
}

}  // namespace

uid_t CallerUid() {
  static const uid_t nCaller = geteuid();
  return nCaller;
}

int OpenNoFollow(const std::string& strPath, int nFlags, mode_t nMode, std::string& strError, FileKind eKind,
                 struct stat& st) {
  int nFd = -1;
  const int nInjected = InjectedOpenError(strPath);
  if (nInjected != 0) {
    errno = nInjected;
  } else {
    do {
      nFd = open(strPath.c_str(), nFlags | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, nMode);
    } while (nFd < 0 && errno == EINTR);
  }
  if (nFd < 0) {
    const int nErrno = errno;
    // A FIFO without a reader, or a socket, answers a non-blocking open
    // with ENXIO, which would only puzzle: say what the path is instead.
    if (nErrno == ENXIO && lstat(strPath.c_str(), &st) == 0 && !isAcceptedKind(st.st_mode, eKind)) {
      strError = KindRefusal(strPath, st.st_mode, eKind);
    } else {
      strError =
          "cannot open " + strPath + ": " +
          (nErrno == ELOOP ? std::string("it is a symbolic link, which is not followed") : std::strerror(nErrno));
    }
    errno = nErrno;
    return -1;
  }
  const bool bChecked = fstat(nFd, &st) == 0;
  if (!bChecked || !isAcceptedKind(st.st_mode, eKind)) {
    strError =
        bChecked ? KindRefusal(strPath, st.st_mode, eKind) : "cannot check " + strPath + ": " + std::strerror(errno);
    close(nFd);
    errno = EINVAL;
    return -1;
  }
  // Later reads and writes wait as usual (a terminal may be slow to take a
  // line); only the open must not. F_SETFL changes only the status flags
  // (O_APPEND, O_NONBLOCK and the like) and keeps the rest: the flags given
  // to open are the ones to keep.
  fcntl(nFd, F_SETFL, nFlags & ~O_NONBLOCK);
  return nFd;
}

int OpenNoFollow(const std::string& strPath, int nFlags, mode_t nMode, std::string& strError, FileKind eKind) {
  struct stat st;
  return OpenNoFollow(strPath, nFlags, nMode, strError, eKind, st);
}

namespace {

// The checks common to a file and a directory, on what stat told of strPath.
bool isTrustedEntry(const struct stat& st, bool bDirectory, const std::string& strPath, std::string& strError) {
  if (bDirectory ? !S_ISDIR(st.st_mode) : !S_ISREG(st.st_mode)) {
    strError = "refusing " + strPath + (bDirectory ? ": it is not a directory" : ": it is not a regular file");
    return false;
  }
  const std::string strProblem = TrustProblem(st);
  if (strProblem.empty()) return true;
  strError = "refusing " + strPath + ": " + strProblem;
  return false;
}

}  // namespace

bool isTrustedFile(const struct stat& st, const std::string& strPath, std::string& strError) {
  return isTrustedEntry(st, false, strPath, strError);
}

bool isTrustedDirectory(const struct stat& st, const std::string& strPath, std::string& strError) {
  return isTrustedEntry(st, true, strPath, strError);
}

bool isTrustedDirectory(const std::string& strPath, std::string& strError) {
  struct stat st;
  if (stat(strPath.c_str(), &st) != 0) {
    strError = "cannot check " + strPath + ": " + std::strerror(errno);
    return false;
  }
  return isTrustedEntry(st, true, strPath, strError);
}

int OpenTrusted(const std::string& strPath, int nFlags, mode_t nMode, std::string& strError, struct stat& st) {
  const int nFd = OpenNoFollow(strPath, nFlags, nMode, strError, FileKind::kRegular, st);
  if (nFd < 0) return -1;
  if (!isTrustedFile(st, strPath, strError)) {
    close(nFd);
    errno = EPERM;
    return -1;
  }
  return nFd;
}

int OpenTrusted(const std::string& strPath, int nFlags, mode_t nMode, std::string& strError) {
  struct stat st;
  return OpenTrusted(strPath, nFlags, nMode, strError, st);
}

}  // namespace devhost
