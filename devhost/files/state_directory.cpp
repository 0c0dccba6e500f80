#include "devhost/files/state_directory.h"

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "devhost/files/make_directories.h"
#include "devhost/files/paths.h"
#include "devhost/files/safe_open.h"

namespace devhost {
namespace {

std::string ParentOf(const std::string& strPath) {
  const std::string::size_type nSlash = strPath.rfind('/');
  return nSlash == 0 || nSlash == std::string::npos ? std::string("/") : strPath.substr(0, nSlash);
}

// What lets another user swap strDir's entries, or "" when nothing does: an
// owner other than root and the caller, or a write bit for group or others
// without the sticky bit (which /tmp has: there one may remove only one's
// own entries).
std::string AncestorProblem(const std::string& strDir) {
  struct stat st;
  if (stat(strDir.c_str(), &st) != 0) return std::string("cannot check it: ") + std::strerror(errno);
  const uid_t nCaller = CallerUid();
  if (st.st_uid != nCaller && st.st_uid != 0) {
    return "it belongs to uid " + std::to_string(st.st_uid) + ", neither to you (uid " + std::to_string(nCaller) +
           ") nor to root";
  }
  if ((st.st_mode & (S_IWGRP | S_IWOTH)) && !(st.st_mode & S_ISVTX)) {
    char szMode[8];
    (void)std::snprintf(szMode, sizeof szMode, "%04o", static_cast<unsigned>(st.st_mode & 07777));
    return std::string("group or others can write it (mode ") + szMode + "; chmod go-w or chmod +t fixes that)";
  }
  return std::string();
}

// The directories that decide who may swap strDir, as OpenSSH's StrictModes
// checks them: every one above it, up to /. Of a directory still to be
// made, its nearest existing ancestor (where it will be made) and every
// one above that, so that nothing is made in an unsafe place. bExists: the
// caller found strDir itself.
bool isTrustedAncestry(const std::string& strDir, bool bExists, std::string& strError) {
  std::string strExisting = strDir;
  if (strExisting[0] != '/') {
    const std::unique_ptr<char, decltype(&free)> pszCwd(getcwd(nullptr, 0), &free);
    if (pszCwd) strExisting = std::string(pszCwd.get()) + "/" + strExisting;
  }
  struct stat st;
  bool bCheckExisting = false;
  while (!bExists && stat(strExisting.c_str(), &st) != 0 && errno == ENOENT && strExisting != "/") {
    strExisting = ParentOf(strExisting);
    bCheckExisting = true;
  }
  const std::unique_ptr<char, decltype(&free)> pszReal(realpath(strExisting.c_str(), nullptr), &free);
  if (!pszReal) {
    // A file where a directory should be is for MakeDirectories to report.
    if (errno == ENOTDIR) return true;
    strError = "cannot check " + strExisting + ": " + std::strerror(errno);
    return false;
  }
  std::string strAncestor = pszReal.get();
  if (!bCheckExisting) strAncestor = ParentOf(strAncestor);
  for (;;) {
    const std::string strProblem = AncestorProblem(strAncestor);
    if (!strProblem.empty()) {
      strError = "refusing the state directory " + strDir;
      strError.append(": ").append(strAncestor).append(" above it is not safe: ").append(strProblem);
      return false;
    }
    if (strAncestor == "/") return true;
    strAncestor = ParentOf(strAncestor);
  }
}

}  // namespace

bool PrepareStateDir(std::string& strError) {
  const std::string strDir = StateDir();
  if (strDir.empty()) {
    strError =
        "no state directory: neither HOME nor XDG_STATE_HOME is set; set HOME, XDG_STATE_HOME or "
        "KTL_STATE_DIR to a directory of your own";
    return false;
  }
  // Nearly always the directory exists: its one stat then serves every check.
  struct stat st;
  if (stat(strDir.c_str(), &st) == 0 && S_ISDIR(st.st_mode)) {
    return isTrustedAncestry(strDir, true, strError) && isTrustedDirectory(st, strDir, strError);
  }
  return isTrustedAncestry(strDir, false, strError) && MakeDirectories(strDir, strError) &&
         isTrustedDirectory(strDir, strError);
}

}  // namespace devhost
