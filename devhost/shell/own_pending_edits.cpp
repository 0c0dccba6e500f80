// The shell's question to the logging tool's service (see
// own_pending_edits.h): a view of the pending configuration of its own, not
// the running command's, so that asking leaves every command's state alone.
#include "devhost/shell/own_pending_edits.h"

#include <string>

#include "devhost/service/edit_session.h"
#include "devhost/service/pending_edits.h"
#include "devhost/service/state_view.h"

bool hasOwnPendingEdits() {
  const devhost::CStateFiles files = devhost::StateFilesNow();
  if (files.strDir.empty()) return false;
  devhost::CPendingEdits edits;
  std::string strError;
  return edits.Refresh(files.strPending, strError) &&
         edits.OwnerFor(devhost::CurrentSession()) == devhost::PendingOwner::kSession;
}
