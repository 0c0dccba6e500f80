#include "devhost/files/make_directories.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

namespace devhost {

bool MakeDirectories(const std::string& strPath, std::string& strError) {
  if (strPath.empty()) {
    strError = "empty directory name";
    return false;
  }
  // Every service call asks for the state directory, which nearly always
  // exists: one stat then, rather than a mkdir per component.
  struct stat st;
  if (stat(strPath.c_str(), &st) == 0 && S_ISDIR(st.st_mode)) return true;
  // Each prefix ending before a "/", then the whole path.
  for (std::string::size_type nPos = strPath.find('/', 1);; nPos = strPath.find('/', nPos + 1)) {
    const std::string strPrefix = strPath.substr(0, nPos);
    if (mkdir(strPrefix.c_str(), 0700) != 0 && errno != EEXIST) {
      strError = "cannot create directory " + strPrefix + ": " + std::strerror(errno);
      return false;
    }
    if (nPos == std::string::npos) break;
  }
  if (stat(strPath.c_str(), &st) != 0 || !S_ISDIR(st.st_mode)) {
    strError = strPath + " is not a directory";
    return false;
  }
  return true;
}

}  // namespace devhost
