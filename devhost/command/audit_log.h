// The audit log: one line per command that reached its execution step,
// in <state directory>/audit.log.
//
// Line format: "<YYYY-MM-DDTHH:MM:SS> session=<id> <command line>", where the
// session is the operator's shell (the parent of ktl-cli). Line breaks in the
// command line are written as blanks, so that one command is one line.
#ifndef KTL_DEVHOST_AUDIT_LOG_H
#define KTL_DEVHOST_AUDIT_LOG_H

#include <string>

namespace devhost {

std::string AuditLogFile();

// Appends the line, creating the state directory if needed. False when it
// could not be written; strError then says what failed.
bool AppendAuditLine(int nSessionId, const std::string& strCommandLine, std::string& strError);

}  // namespace devhost

#endif
