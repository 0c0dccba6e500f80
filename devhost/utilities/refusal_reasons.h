// The reasons of a refusal, as the plug-in traced them during one command.
//
// CTraceUtility::WriteDebug hands every line of levels 16 (rejected
// parameters), 2 (failures of the environment) and 1 (notes) to
// NoteTracedReason, whatever the trace mask; GetPrivateProfileIntA reports
// each value it serves to NoteLimitRead. ktl-cli starts a collection before
// each command and prints CollectedReasons() when the command was refused or
// failed, so that the operator learns which option or value was wrong
// without turning the trace on. The host's own notes (module "ktl-cli") are
// not reasons. Not thread-safe: one command at a time per process.
#ifndef KTL_DEVHOST_REFUSAL_REASONS_H
#define KTL_DEVHOST_REFUSAL_REASONS_H

#include <string>
#include <vector>

namespace devhost {

// Forgets the reasons and limit reads of the previous command.
void StartCollectingReasons();

// One traced line: module, level and the text with its values filled in.
// Lines of other levels, of module "ktl-cli" and without an operation's
// signature (the host's own notes) are ignored; control bytes are escaped
// (\x1b) and a line already collected is not collected twice.
void NoteTracedReason(const char* pszModule, unsigned nLevel, const std::string& strText);

// One value served from a limits file: section, key, the file as the
// plug-in named it, and the value returned (configured or built-in).
void NoteLimitRead(const std::string& strSection, const std::string& strKey, const std::string& strFile, int nValue);

// The reasons in the order they were traced, each without the operation's
// signature text. A rejected value of option "-x" whose limits X_MIN and X_MAX
// were the last ones read gets the range that was in force, e.g.
// "Parameter Error: -threshold 5 (allowed 10 to 100: CPU THRESHOLD_MIN,
// THRESHOLD_MAX in /opt/velmora/ktl/cli/LoggerParams.ini, or built-in)".
std::vector<std::string> CollectedReasons();

}  // namespace devhost

#endif
