// The state directory: where the development host keeps the logging tool's
// configurations, the edit session, the locks and the logs.
//
// It is private to its user: created with mode 0700, and refused when it
// belongs to another user or group or others can write it, or when one of
// the directories above it belongs to another user than root or the caller
// or is writable by group or others without being sticky. There is no
// shared fallback such as /tmp, where another user could have made it first:
// without KTL_STATE_DIR, XDG_STATE_HOME and HOME the host refuses to run.
#ifndef KTL_DEVHOST_STATE_DIRECTORY_H
#define KTL_DEVHOST_STATE_DIRECTORY_H

#include <string>

namespace devhost {

// Makes sure devhost::StateDir() exists and may be trusted. False, with
// strError saying what is wrong (or which variable to set), otherwise.
bool PrepareStateDir(std::string& strError);

}  // namespace devhost

#endif
