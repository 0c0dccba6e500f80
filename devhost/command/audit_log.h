// The audit log: one line per command that reached its execution step, in
// <state directory>/audit.log, written when the command ends so that it can
// tell how it ended:
//
//   <YYYY-MM-DDTHH:MM:SS> user=<name> session=<id> status=<how it ended> <command line>
//
// The user is the real user running ktl-cli, the session the operator's
// session (CCommand::GetPPID), the status ktl-cli's exit status, the signal
// that ended it (SIGINT, SIGTERM, SIGHUP, SIGPIPE) or "unknown" when the
// process ended without either. Control characters in the command line,
// line breaks included, are written as \xHH, so that one command is one line
// and the log shows on a terminal as it is.
//
// The log is opened, and room for the line is reserved, before the command
// changes anything: a command whose line could not be written must not
// change the state.
#ifndef KTL_DEVHOST_AUDIT_LOG_H
#define KTL_DEVHOST_AUDIT_LOG_H

#include <string>

namespace devhost {

std::string AuditLogFile();

enum class AuditStart {
  kStarted,     // the line will be written when the command ends
  kUnwritable,  // audit.log cannot be opened or has no room for the line
  kFailed,      // the state directory itself is not usable
};

// Starts this command's record. Otherwise strError names the file and the
// reason. A record started before and not yet ended is ended first, as
// "unknown".
AuditStart BeginAuditRecord(int nSessionId, const std::string& strCommandLine, std::string& strError);

// Writes the started record with the command's exit status; false, with
// strError set, when the line could not be written. True, doing nothing,
// when no record was started.
bool EndAuditRecord(int nExitStatus, std::string& strError);

}  // namespace devhost

#endif
