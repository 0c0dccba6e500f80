// Reads the mount listing (see mounted_file_systems.h) through
// CKtlUtil::ExecSystemCmd, the way the plug-in's own mount check reads it, so
// that completion offers what that check will accept.
#include "devhost/help/mounted_file_systems.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "host/ktl_util.h"

namespace devhost {
namespace {

const char kMountCommand[] = "/bin/mount";
const char kOnMarker[] = " on ";
const char kTypeMarker[] = " type ";

// File system types that hold no files of the operator's.
const char* const kKernelInterfaceTypes[] = {
    "autofs", "binfmt_misc", "bpf",        "cgroup",    "cgroup2", "configfs", "debugfs",
    "devpts", "efivarfs",    "fusectl",    "hugetlbfs", "mqueue",  "nsfs",     "proc",
    "pstore", "rpc_pipefs",  "securityfs", "selinuxfs", "sysfs",   "tracefs",
};

bool isKernelInterface(const std::string& strType) {
  return std::find(std::begin(kKernelInterfaceTypes), std::end(kKernelInterfaceTypes), strType) !=
         std::end(kKernelInterfaceTypes);
}

bool isPlainWord(const std::string& strText) {
  return !strText.empty() &&
         std::none_of(strText.begin(), strText.end(), [](unsigned char c) { return c <= ' ' || c == 0x7f; });
}

}  // namespace

std::vector<CMountedFileSystem> MountedFileSystems() {
  std::vector<CMountedFileSystem> vecMounted;
  const std::string strPath = CKtlUtil::ExecSystemCmd(kMountCommand);
  std::ifstream listing(strPath);
  for (std::string strLine; std::getline(listing, strLine);) {
    const size_t nOn = strLine.find(kOnMarker);
    if (nOn == std::string::npos) continue;
    const size_t nStart = nOn + sizeof(kOnMarker) - 1;
    const size_t nType = strLine.find(kTypeMarker, nStart);
    if (nType == std::string::npos) continue;
    const size_t nTypeStart = nType + sizeof(kTypeMarker) - 1;
    CMountedFileSystem mounted;
    mounted.strDirectory = strLine.substr(nStart, nType - nStart);
    mounted.strType = strLine.substr(nTypeStart, strLine.find(' ', nTypeStart) - nTypeStart);
    if (isPlainWord(mounted.strDirectory) && !isKernelInterface(mounted.strType)) vecMounted.push_back(mounted);
  }
  if (listing.is_open()) ::unlink(strPath.c_str());
  return vecMounted;
}

}  // namespace devhost
