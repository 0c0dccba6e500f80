// The mount listing of the running command (see mount_snapshot.h).
#include "devhost/utilities/mount_snapshot.h"

namespace devhost {
namespace {

struct SSnapshot {
  bool bOpen = false;
  bool bTaken = false;
  std::string strListing;
};

SSnapshot& Snapshot() {
  static SSnapshot snapshot;
  return snapshot;
}

}  // namespace

CMountSnapshot::CMountSnapshot() {
  Snapshot() = SSnapshot();
  Snapshot().bOpen = true;
}

CMountSnapshot::~CMountSnapshot() { Snapshot() = SSnapshot(); }

bool SnapshotListing(std::string& strListing) {
  if (!Snapshot().bTaken) return false;
  strListing = Snapshot().strListing;
  return true;
}

void KeepSnapshotListing(const std::string& strListing) {
  if (!Snapshot().bOpen) return;
  Snapshot().strListing = strListing;
  Snapshot().bTaken = true;
}

}  // namespace devhost
