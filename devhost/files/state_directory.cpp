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
  const uid_t nCaller = geteuid();
  if (st.st_uid != nCaller && st.st_uid != 0) {
    return "it belongs to uid " + std::to_string(st.st_uid) + ", neither to you (uid " + std::to_string(nCaller) +
           ") nor to root";
  }
  if ((st.st_mode & (S_IWGRP | S_IWOTH)) && !(st.st_mode & S_ISVTX)) {
    char szMode[8];
    std::snprintf(szMode, sizeof szMode, "%04o", static_cast<unsigned>(st.st_mode & 07777));
    return std::string("group or others can write it (mode ") + szMode + "; chmod go-w or chmod +t fixes that)";
  }
  return std::string();
}

// Every directory above strDir, up to /, as OpenSSH's StrictModes checks
// them: whoever may rename an entry of one of them can swap the state
// directory for one of their own.
bool isTrustedAncestry(const std::string& strDir, std::string& strError) {
  const std::unique_ptr<char, decltype(&free)> pszReal(realpath(strDir.c_str(), nullptr), &free);
  if (!pszReal) {
    strError = "cannot check " + strDir + ": " + std::strerror(errno);
    return false;
  }
  std::string strAncestor = pszReal.get();
  while (strAncestor != "/") {
    strAncestor = ParentOf(strAncestor);
    const std::string strProblem = AncestorProblem(strAncestor);
    if (!strProblem.empty()) {
      strError =
          "refusing the state directory " + strDir + ": its parent " + strAncestor + " is not safe: " + strProblem;
      return false;
    }
  }
  return true;
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
  return MakeDirectories(strDir, strError) && isTrustedDirectory(strDir, strError) &&
         isTrustedAncestry(strDir, strError);
}

}  // namespace devhost
