#include "devhost/command/audit_log.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "devhost/files/command_lock.h"
#include "devhost/files/fault_injection.h"
#include "devhost/files/paths.h"
#include "devhost/files/safe_open.h"
#include "devhost/files/state_directory.h"
#include "devhost/utilities/terminal_text.h"
#include "devhost/utilities/timestamp.h"
#include "devhost/utilities/user_name.h"

namespace devhost {
namespace {

// The signals that end a command which is waiting at its question or
// printing: each still leaves the command's line, naming the signal.
const int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};
// The longest status a line can carry: a signal's name or "unknown".
const std::size_t kLongestStatus = 7;

const char* SignalName(int nSignal) {
  switch (nSignal) {
    case SIGINT:
      return "SIGINT";
    case SIGTERM:
      return "SIGTERM";
    case SIGHUP:
      return "SIGHUP";
    default:
      return "SIGPIPE";
  }
}

void RecordEndingSignal(int nSignal);

// The record of the running command, between BeginAuditRecord and
// EndAuditRecord. A process that ends in between still leaves its line:
// "unknown" at exit, the signal's name when one of kEndingSignals ends it.
class CAuditRecord {
 public:
  ~CAuditRecord() {
    std::string strIgnored;
    Write("unknown", strIgnored);
  }

  void Start(int nFd, const std::string& strFile, const std::string& strHead, const std::string& strCommandLine) {
    m_strFile = strFile;
    m_strBeforeStatus = strHead + " status=";
    m_strAfterStatus = " " + strCommandLine + "\n";
    m_nFd = nFd;
    CatchEndingSignals();
  }

  // Appends the line with one write, so that lines of concurrent commands
  // never interleave, and closes the log. The ending signals wait meanwhile,
  // so that the command has one line, not two.
  bool Write(const std::string& strStatus, std::string& strError) {
    if (m_nFd < 0) return true;
    sigset_t blocked, previous;
    sigemptyset(&blocked);
    for (const int nSignal : kEndingSignals) sigaddset(&blocked, nSignal);
    sigprocmask(SIG_BLOCK, &blocked, &previous);
    const std::string strLine = m_strBeforeStatus + strStatus + m_strAfterStatus;
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
    ReleaseEndingSignals();
    sigprocmask(SIG_SETMASK, &previous, nullptr);
    return bWritten;
  }

  // The line for a signal, from its handler: only async-signal-safe calls,
  // on text made before the handler was installed.
  void WriteFromSignal(int nSignal) {
    if (m_nFd < 0) return;
    const char* pszStatus = SignalName(nSignal);
    struct iovec parts[3] = {{const_cast<char*>(m_strBeforeStatus.data()), m_strBeforeStatus.size()},
                             {const_cast<char*>(pszStatus), std::strlen(pszStatus)},
                             {const_cast<char*>(m_strAfterStatus.data()), m_strAfterStatus.size()}};
    while (writev(m_nFd, parts, 3) < 0 && errno == EINTR) {
    }
    m_nFd = -1;
  }

 private:
  // Only a signal that would end the process is caught: one that is
  // ignored, or that the shell catches (Ctrl-C ends only the command's
  // wait there), is left as it is.
  void CatchEndingSignals() {
    for (std::size_t i = 0; i < sizeof kEndingSignals / sizeof kEndingSignals[0]; ++i) {
      struct sigaction current;
      m_bCaught[i] = sigaction(kEndingSignals[i], nullptr, &current) == 0 && current.sa_handler == SIG_DFL;
      if (!m_bCaught[i]) continue;
      struct sigaction action = {};
      action.sa_handler = RecordEndingSignal;
      sigemptyset(&action.sa_mask);
      // Back to the default on entry, so that raising the signal again ends
      // the process the way the signal would have.
      action.sa_flags = SA_RESETHAND;
      sigaction(kEndingSignals[i], &action, nullptr);
    }
  }

  void ReleaseEndingSignals() {
    for (std::size_t i = 0; i < sizeof kEndingSignals / sizeof kEndingSignals[0]; ++i) {
      if (m_bCaught[i]) (void)signal(kEndingSignals[i], SIG_DFL);  // cannot fail for these signals
      m_bCaught[i] = false;
    }
  }

  int m_nFd = -1;
  std::string m_strFile;
  std::string m_strBeforeStatus;
  std::string m_strAfterStatus;
  bool m_bCaught[sizeof kEndingSignals / sizeof kEndingSignals[0]] = {};
};

CAuditRecord& Record() {
  static CAuditRecord record;
  return record;
}

void RecordEndingSignal(int nSignal) {
  Record().WriteFromSignal(nSignal);
  (void)raise(nSignal);  // the default action again: the process ends as the signal says
}

// Reserves room for nLength more bytes of the log after its nSize bytes, so
// that a full disk shows now, before the command changes anything, rather
// than when its line is written. A file system that cannot reserve is
// trusted to have room.
bool ReserveRoom(int nFd, off_t nSize, std::size_t nLength, const std::string& strFile, std::string& strError) {
  if (fallocate(nFd, FALLOC_FL_KEEP_SIZE, nSize, static_cast<off_t>(nLength)) == 0) return true;
  if (errno != ENOSPC && errno != EDQUOT) return true;
  strError = "cannot write " + strFile + ": " + std::strerror(errno);
  return false;
}

}  // namespace

std::string AuditLogFile() { return StateDir() + "/audit.log"; }

AuditStart BeginAuditRecord(int nSessionId, const std::string& strCommandLine, std::string& strError) {
  std::string strIgnored;
  Record().Write("unknown", strIgnored);
  // The command lock was taken in a state directory checked just before;
  // only a command run without it (or during its question) checks here.
  if (!isCommandLockHeld() && !PrepareStateDir(strError)) return AuditStart::kFailed;
  const std::string strFile = AuditLogFile();
  struct stat st;
  const int nFd = OpenTrusted(strFile, O_WRONLY | O_APPEND | O_CREAT, 0600, strError, st);
  if (nFd < 0) return AuditStart::kUnwritable;
  const std::string strHead = LocalTimestamp() + " user=" + RealUserName() + " session=" + std::to_string(nSessionId);
  const std::string strEscapedLine = EscapeControlBytes(strCommandLine);
  const std::size_t nLength = strHead.size() + strEscapedLine.size() + sizeof " status= \n" + kLongestStatus;
  if (!ReserveRoom(nFd, st.st_size, nLength, strFile, strError)) {
    close(nFd);
    return AuditStart::kUnwritable;
  }
  Record().Start(nFd, strFile, strHead, strEscapedLine);
  return AuditStart::kStarted;
}

bool EndAuditRecord(int nExitStatus, std::string& strError) {
  return Record().Write(std::to_string(nExitStatus), strError);
}

}  // namespace devhost
