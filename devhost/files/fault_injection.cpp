#include "devhost/files/fault_injection.h"

#include <fnmatch.h>
#include <signal.h>

#include <cerrno>

#include "devhost/files/paths.h"

namespace devhost {

void BeforeFileChange() {
  static const unsigned long nKillAt = FaultKillAt();
  static unsigned long nChanges = 0;
  if (nKillAt != 0 && ++nChanges == nKillAt) raise(SIGKILL);
}

int InjectedOpenError(const std::string& strPath) {
  static const std::string strFault = FaultOpen();
  const std::string::size_type nColon = strFault.rfind(':');
  if (nColon == std::string::npos) return 0;
  const std::string strPattern = strFault.substr(0, nColon);
  const std::string strError = strFault.substr(nColon + 1);
  const std::string::size_type nSlash = strPath.rfind('/');
  const bool bWholePath = strPattern.find('/') != std::string::npos;
  const std::string strSubject = bWholePath || nSlash == std::string::npos ? strPath : strPath.substr(nSlash + 1);
  if (fnmatch(strPattern.c_str(), strSubject.c_str(), 0) != 0) return 0;
  if (strError == "EACCES") return EACCES;
  if (strError == "ENOSPC") return ENOSPC;
  if (strError == "EIO") return EIO;
  return 0;
}

}  // namespace devhost
