// The audit log: one line per command that reached its execution step, in
// <state directory>/audit.log, written when the command ends so that it can
// tell how it ended:
//
//   <YYYY-MM-DDTHH:MM:SS> user=<name> session=<id> status=<exit status> <command line>
//
// The user is the real user running ktl-cli, the session the operator's
// session (CCommand::GetPPID), the status ktl-cli's exit status ("unknown"
// when the process ended without one). Control bytes in the command line,
// line breaks included, are written as \xHH, so that one command is one line
// and the log shows on a terminal as it is.
#ifndef KTL_DEVHOST_AUDIT_LOG_H
#define KTL_DEVHOST_AUDIT_LOG_H

#include <string>

namespace devhost {

std::string AuditLogFile();

// Starts this command's record: makes sure the log can be written, so that
// a command whose record cannot be kept does not run. False, with strError
// naming the file and the system error, when it cannot; true without a
// record when the state directory is read-only. A record started
// before and not yet ended is ended first, as "unknown".
bool BeginAuditRecord(int nSessionId, const std::string& strCommandLine, std::string& strError);

// Writes the started record with the command's exit status; false, with
// strError set, when the line could not be written. True, doing nothing,
// when no record was started.
bool EndAuditRecord(int nExitStatus, std::string& strError);

}  // namespace devhost

#endif
