#include "devhost/files/leftovers.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <ctime>

#include "devhost/files/safe_open.h"

namespace devhost {
namespace {

// Older than this, a temporary file belongs to no running command.
const time_t kStaleSeconds = 3600;
const std::string::size_type kRandomPartLength = 6;  // the XXXXXX

// The process id in a name of the pattern, or 0 when the name does not
// follow it.
long ProcessIdOf(const std::string& strName, const std::string& strPrefix, bool bPrefixIsWholeStart) {
  const std::string::size_type nPrefix = strName.rfind(strPrefix);
  if (nPrefix == std::string::npos || (bPrefixIsWholeStart && nPrefix != 0)) return 0;
  const std::string strRest = strName.substr(nPrefix + strPrefix.size());
  const std::string::size_type nDot = strRest.find('.');
  if (nDot == 0 || nDot == std::string::npos || strRest.size() - nDot - 1 != kRandomPartLength) return 0;
  for (std::string::size_type i = 0; i < strRest.size(); ++i) {
    const unsigned char c = static_cast<unsigned char>(strRest[i]);
    if (i < nDot ? !std::isdigit(c) : i > nDot && !std::isalnum(c)) return 0;
  }
  return std::strtol(strRest.c_str(), nullptr, 10);
}

bool isProcessGone(long nProcessId) { return kill(static_cast<pid_t>(nProcessId), 0) != 0 && errno == ESRCH; }

}  // namespace

std::string TempFileTemplate(const std::string& strPrefix) { return strPrefix + std::to_string(getpid()) + ".XXXXXX"; }

void RemoveLeftovers(const std::string& strDir, const std::string& strPrefix, bool bPrefixIsWholeStart) {
  DIR* pDir = opendir(strDir.c_str());
  if (!pDir) return;
  const time_t nNow = time(nullptr);
  while (const struct dirent* pEntry = readdir(pDir)) {
    const std::string strName = pEntry->d_name;
    const long nProcessId = ProcessIdOf(strName, strPrefix, bPrefixIsWholeStart);
    if (nProcessId <= 0 || nProcessId == getpid()) continue;
    struct stat st;
    if (fstatat(dirfd(pDir), strName.c_str(), &st, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISREG(st.st_mode) ||
        st.st_uid != CallerUid()) {
      continue;
    }
    if (nNow - st.st_mtime > kStaleSeconds || isProcessGone(nProcessId)) {
      unlinkat(dirfd(pDir), strName.c_str(), 0);
    }
  }
  closedir(pDir);
}

}  // namespace devhost
