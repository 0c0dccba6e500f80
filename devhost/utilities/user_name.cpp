#include "devhost/utilities/user_name.h"

#include <pwd.h>
#include <unistd.h>

#include <vector>

#include "devhost/utilities/terminal_text.h"

namespace devhost {
namespace {

std::string LookUpRealUserName() {
  const uid_t nUid = getuid();
  struct passwd entry;
  struct passwd* pFound = nullptr;
  std::vector<char> buffer(16384);
  if (getpwuid_r(nUid, &entry, buffer.data(), buffer.size(), &pFound) == 0 && pFound && pFound->pw_name[0] != '\0') {
    return EscapeControlBytes(pFound->pw_name);
  }
  return std::to_string(nUid);
}

}  // namespace

std::string RealUserName() {
  static const std::string strName = LookUpRealUserName();
  return strName;
}

}  // namespace devhost
