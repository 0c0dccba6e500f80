// Lock files: opening them on a state directory that may be read-only, and
// waiting for their lock in a way the operator can see and that ends.
#ifndef KTL_DEVHOST_LOCK_FILE_H
#define KTL_DEVHOST_LOCK_FILE_H

#include <string>

namespace devhost {

enum class LockOpen {
  kOpened,     // nFd is the open lock file
  kNotNeeded,  // the directory is read-only and holds no lock file: nothing
               // there can change, so readers need no lock
  kFailed,     // strError says why
};

// Opens strLockFile, creating it with mode 0600 when missing. On a read-only
// directory an existing lock file is opened read-only, which flock accepts.
LockOpen OpenLockFile(const std::string& strLockFile, int& nFd, std::string& strError);

// Takes the exclusive lock on nFd (the open strLockFile). When another
// process holds it, says so on standard error after about a second, naming
// the holder, and gives up after devhost::LockTimeoutSeconds() unless
// bWaitForEver. False, with strError set, when it gave up or failed.
bool LockWaiting(int nFd, const std::string& strLockFile, bool bWaitForEver, std::string& strError);

}  // namespace devhost

#endif
