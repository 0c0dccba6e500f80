#include "devhost/files/state_directory.h"

#include "devhost/files/make_directories.h"
#include "devhost/files/paths.h"
#include "devhost/files/safe_open.h"

namespace devhost {

bool PrepareStateDir(std::string& strError) {
  const std::string strDir = StateDir();
  if (strDir.empty()) {
    strError =
        "no state directory: neither HOME nor XDG_STATE_HOME is set; set HOME, XDG_STATE_HOME or "
        "KTL_STATE_DIR to a directory of your own";
    return false;
  }
  return MakeDirectories(strDir, strError) && isTrustedDirectory(strDir, strError);
}

}  // namespace devhost
