// The shell's question to the logging tool's service (see
// own_pending_edits.h): a view of the pending configuration of its own, not
// the running command's, so that asking leaves every command's state alone.
#include "devhost/shell/own_pending_edits.h"

#include <string>

#include "devhost/files/paths.h"
#include "devhost/service/edit_session.h"
#include "devhost/service/pending_edits.h"

namespace {

// The service's pending configuration in the state directory.
const char kPendingFileName[] = "/logger.edit.ini";

}  // namespace

bool hasOwnPendingEdits() {
  const std::string strStateDir = devhost::StateDir();
  if (strStateDir.empty()) return false;
  devhost::CPendingEdits edits;
  std::string strError;
  return edits.Refresh(strStateDir + kPendingFileName, strError) &&
         edits.OwnerFor(devhost::CurrentSession()) == devhost::PendingOwner::kSession;
}
