#include "devhost/command/audit_log.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "devhost/files/append_file.h"
#include "devhost/files/make_directories.h"
#include "devhost/files/paths.h"
#include "devhost/utilities/timestamp.h"

namespace devhost {

std::string AuditLogFile() { return StateDir() + "/audit.log"; }

bool AppendAuditLine(int nSessionId, const std::string& strCommandLine, std::string& strError) {
  if (!MakeDirectories(StateDir(), strError)) return false;
  std::string strOneLine = strCommandLine;
  std::replace(strOneLine.begin(), strOneLine.end(), '\n', ' ');
  std::replace(strOneLine.begin(), strOneLine.end(), '\r', ' ');
  const std::string strLine =
      LocalTimestamp() + " session=" + std::to_string(nSessionId) + " " + strOneLine + "\n";
  const std::string strFile = AuditLogFile();
  if (!AppendToFile(strFile, strLine)) {
    strError = "cannot write " + strFile + ": " + std::strerror(errno);
    return false;
  }
  return true;
}

}  // namespace devhost
