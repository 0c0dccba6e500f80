#include "devhost/command/audit_log.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "devhost/files/fault_injection.h"
#include "devhost/files/paths.h"
#include "devhost/files/safe_open.h"
#include "devhost/files/state_directory.h"
#include "devhost/utilities/terminal_text.h"
#include "devhost/utilities/timestamp.h"
#include "devhost/utilities/user_name.h"

namespace devhost {
namespace {

// The record of the running command, between BeginAuditRecord and
// EndAuditRecord. A process that ends in between still leaves its line.
class CAuditRecord {
 public:
  ~CAuditRecord() {
    std::string strIgnored;
    Write("unknown", strIgnored);
  }

  void Start(int nFd, const std::string& strFile, const std::string& strHead, const std::string& strCommandLine) {
    m_nFd = nFd;
    m_strFile = strFile;
    m_strHead = strHead;
    m_strCommandLine = strCommandLine;
  }

  // Appends the line with one write, so that lines of concurrent commands
  // never interleave, and closes the log.
  bool Write(const std::string& strStatus, std::string& strError) {
    if (m_nFd < 0) return true;
    const std::string strLine = m_strHead + " status=" + strStatus + " " + m_strCommandLine + "\n";
    BeforeFileChange();
    ssize_t nWritten;
    do {
      nWritten = write(m_nFd, strLine.data(), strLine.size());
    } while (nWritten < 0 && errno == EINTR);
    bool bWritten = nWritten == static_cast<ssize_t>(strLine.size());
    if (!bWritten) strError = "cannot write " + m_strFile + ": " + std::strerror(nWritten < 0 ? errno : ENOSPC);
    if (close(m_nFd) != 0 && bWritten) {
      strError = "cannot write " + m_strFile + ": " + std::strerror(errno);
      bWritten = false;
    }
    m_nFd = -1;
    return bWritten;
  }

 private:
  int m_nFd = -1;
  std::string m_strFile;
  std::string m_strHead;
  std::string m_strCommandLine;
};

CAuditRecord& Record() {
  static CAuditRecord record;
  return record;
}

}  // namespace

std::string AuditLogFile() { return StateDir() + "/audit.log"; }

bool BeginAuditRecord(int nSessionId, const std::string& strCommandLine, std::string& strError) {
  std::string strIgnored;
  Record().Write("unknown", strIgnored);
  if (!PrepareStateDir(strError)) return false;
  const std::string strFile = AuditLogFile();
  const int nFd = OpenTrusted(strFile, O_WRONLY | O_APPEND | O_CREAT, 0600, strError);
  // Nothing can change in a read-only state directory, so a command there
  // has nothing to account for; one that tries to change something fails.
  if (nFd < 0) return errno == EROFS || errno == EACCES;
  const std::string strHead = LocalTimestamp() + " user=" + RealUserName() + " session=" + std::to_string(nSessionId);
  Record().Start(nFd, strFile, strHead, EscapeControlBytes(strCommandLine));
  return true;
}

bool EndAuditRecord(int nExitStatus, std::string& strError) {
  return Record().Write(std::to_string(nExitStatus), strError);
}

}  // namespace devhost
