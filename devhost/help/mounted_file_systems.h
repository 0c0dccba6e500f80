// The mounted file systems a disk usage monitor can watch, as the listing of
// the mount command the host runs shows them (devhost::MountCommand()), for
// completion after "-mp".
#ifndef KTL_DEVHOST_HELP_MOUNTED_FILE_SYSTEMS_H
#define KTL_DEVHOST_HELP_MOUNTED_FILE_SYSTEMS_H

#include <string>
#include <vector>

namespace devhost {

struct CMountedFileSystem {
  std::string strDirectory;  // "/data"
  std::string strType;       // "ext4"
};

// Every line "DEVICE on DIRECTORY type TYPE (...)" of the listing, in its
// order, except the kernel's own interfaces (proc, sysfs, cgroup and the
// like), whose usage is no disk usage, and directories that a command line
// or a terminal would not show as typed (blanks, control bytes). Empty when
// the command lists nothing or cannot run.
std::vector<CMountedFileSystem> MountedFileSystems();

}  // namespace devhost

#endif
