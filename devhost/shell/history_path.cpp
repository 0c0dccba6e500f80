#include "devhost/shell/history_path.h"

#include <stdlib.h>
#include <sys/stat.h>

#include <iostream>

#include "devhost/utilities/terminal_text.h"

namespace devhost {
namespace {

const char kHistoryFile[] = ".ktl_history";

}  // namespace

std::string HistoryPath() {
  // secure_getenv answers nothing in a set-user-ID or set-group-ID process.
  const char* pszHome = secure_getenv("HOME");
  if (pszHome == nullptr || pszHome[0] != '/') return std::string();
  const std::string strPath = std::string(pszHome) + "/" + kHistoryFile;
  struct stat st;
  if (stat(strPath.c_str(), &st) == 0 && !S_ISREG(st.st_mode)) {
    std::cerr << "ktl-cli: no history is kept: " << EscapeControlBytes(strPath) << " is not a regular file"
              << std::endl;
    return std::string();
  }
  return strPath;
}

}  // namespace devhost
