#include "devhost/utilities/user_name.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <vector>

#include "devhost/utilities/terminal_text.h"

namespace devhost {
namespace {

const char kPasswdFile[] = "/etc/passwd";
// Room for the strings of one /etc/passwd line: on the stack, whose pages
// are already there, where a fresh heap block would cost page faults.
const std::size_t kLocalEntrySize = 1024;
const std::size_t kEntryBufferSize = 16384;

// The name of nUid in the local password file, read with libc's own reader,
// or "" when it has none there. Local users are found without starting the
// name services (nsswitch.conf, nscd's socket), which cost a one-shot
// command more than the rest of its look-ups together. Lines of the "compat"
// syntax (+name, -name) are references into a directory service, not names.
std::string LocalUserName(uid_t nUid) {
  std::FILE* pFile = std::fopen(kPasswdFile, "re");
  if (pFile == nullptr) return std::string();
  std::string strName;
  struct passwd entry;
  struct passwd* pEntry = nullptr;
  std::array<char, kLocalEntrySize> buffer;
  // Any error (a line longer than the buffer included) ends the search: the
  // name services, which read /etc/passwd too, are asked instead.
  while (fgetpwent_r(pFile, &entry, buffer.data(), buffer.size(), &pEntry) == 0 && pEntry != nullptr) {
    if (pEntry->pw_uid == nUid && pEntry->pw_name[0] != '+' && pEntry->pw_name[0] != '-') {
      strName = pEntry->pw_name;
      break;
    }
  }
  (void)std::fclose(pFile);  // read only: nothing to lose
  return strName;
}

// Users of a directory service (LDAP, sssd) are known through the name
// services only.
std::string ServiceUserName(uid_t nUid) {
  struct passwd entry;
  struct passwd* pFound = nullptr;
  std::vector<char> buffer(kEntryBufferSize);
  if (getpwuid_r(nUid, &entry, buffer.data(), buffer.size(), &pFound) == 0 && pFound) return pFound->pw_name;
  return std::string();
}

std::string LookUpRealUserName() {
  const uid_t nUid = getuid();
  std::string strName = LocalUserName(nUid);
  if (strName.empty()) strName = ServiceUserName(nUid);
  return strName.empty() ? std::to_string(nUid) : EscapeControlBytes(strName);
}

}  // namespace

std::string RealUserName() {
  static const std::string strName = LookUpRealUserName();
  return strName;
}

}  // namespace devhost
