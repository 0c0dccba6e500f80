// One listing of the mount command per command. A command is one short
// transaction: the plug-in asks for the listing once per mount point it
// checks, and the host's reasons after a refusal ask again. While a
// CMountSnapshot is open, the first run's output answers the later ones, so
// that every check of one command sees the same mounts and the mount
// command runs once. Outside a command (completion in the shell, say) every
// request runs it afresh. Not thread-safe: one command per process.
#ifndef KTL_DEVHOST_MOUNT_SNAPSHOT_H
#define KTL_DEVHOST_MOUNT_SNAPSHOT_H

#include <string>

namespace devhost {

class CMountSnapshot {
 public:
  CMountSnapshot();
  ~CMountSnapshot();
  CMountSnapshot(const CMountSnapshot&) = delete;
  CMountSnapshot& operator=(const CMountSnapshot&) = delete;
};

// The listing taken in the open snapshot: false when no snapshot is open or
// none was taken yet.
bool SnapshotListing(std::string& strListing);
// Keeps strListing for the rest of the open snapshot; nothing outside one.
void KeepSnapshotListing(const std::string& strListing);

}  // namespace devhost

#endif
