// The name of the user who runs ktl-cli, for the audit log and the record of
// who holds pending edits.
#ifndef KTL_DEVHOST_USER_NAME_H
#define KTL_DEVHOST_USER_NAME_H

#include <string>

namespace devhost {

// The real user's name from /etc/passwd, else from the name services (LDAP,
// sssd), control bytes escaped, or the number when the user has none.
// Looked up once per process: the real user of a process does not change.
std::string RealUserName();

}  // namespace devhost

#endif
