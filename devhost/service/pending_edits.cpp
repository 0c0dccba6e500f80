#include "devhost/service/pending_edits.h"

#include <utility>

#include "devhost/files/command_lock.h"
#include "devhost/service/logger_conf_check.h"
#include "devhost/utilities/timestamp.h"

namespace devhost {

CPendingEdits& CPendingEdits::OfThisCommand() {
  static CPendingEdits edits;
  return edits;
}

bool CPendingEdits::Refresh(const std::string& strPendingFile, std::string& strError) {
  if (m_eChange != Change::kNone) return true;
  // Read under the lock held now: nobody else can have changed it.
  if (m_bRead && isCommandLockHeld() && m_nReadHolding == CommandLockHolding() && m_strPath == strPendingFile) {
    return true;
  }
  std::string strText;
  const IniRead eRead = ReadTextFile(strPendingFile, strText, strError);
  if (eRead == IniRead::kError) return false;
  m_strPath = strPendingFile;
  m_bRead = true;
  m_nReadHolding = CommandLockHolding();
  m_eOwnerLiveness = Liveness::kUnknown;
  m_eDiskRead = eRead;
  m_strDiskText = strText;
  m_strParseError.clear();
  m_tree.clear();
  m_owner = CSessionRecord();
  m_bHasEdits = !strText.empty();
  if (m_bHasEdits && ParseIniText(strText, strPendingFile, m_tree, m_strParseError)) {
    ReadSessionRecord(m_tree, m_owner);
  }
  if (m_bHasEdits && !m_bSawEdits) m_strFirstSeenText = strText;
  m_bSawEdits = m_bSawEdits || m_bHasEdits;
  return true;
}

bool CPendingEdits::Tree(IniTree& tree, std::string& strError) const {
  if (!m_strParseError.empty()) {
    strError = m_strParseError;
    return false;
  }
  tree = m_tree;
  return true;
}

IniTree CPendingEdits::FirstSeen() const {
  IniTree tree;
  std::string strIgnored;
  if (!m_strFirstSeenText.empty() && !ParseIniText(m_strFirstSeenText, m_strPath, tree, strIgnored)) tree.clear();
  return tree;
}

PendingOwner CPendingEdits::OwnerFor(int nSession) const {
  if (!m_bHasEdits) return PendingOwner::kNone;
  if (m_owner.nSession == 0) return PendingOwner::kAbandoned;
  // The command's own session runs: its leader started this command.
  if (isSameSession(m_owner, RecordOfSession(nSession))) return PendingOwner::kSession;
  if (m_eOwnerLiveness == Liveness::kUnknown) m_eOwnerLiveness = isLive(m_owner) ? Liveness::kLive : Liveness::kEnded;
  return m_eOwnerLiveness == Liveness::kEnded ? PendingOwner::kAbandoned : PendingOwner::kOther;
}

void CPendingEdits::Replace(const IniTree& tree, int nSession) {
  m_tree = tree;
  m_strParseError.clear();
  // A takeover records the new owner whole, even when it has the old one's id.
  const CSessionRecord owner = RecordOfSession(nSession);
  if (!isSameSession(m_owner, owner)) {
    m_owner = owner;
    m_owner.strSince = LocalTimestamp();
  }
  PutSessionRecord(m_tree, m_owner);
  m_bHasEdits = true;
  m_eChange = Change::kReplace;
}

void CPendingEdits::Remove() {
  m_tree.clear();
  m_owner = CSessionRecord();
  m_bHasEdits = false;
  m_eChange = Change::kRemove;
}

bool CPendingEdits::Commit(std::string& strError) {
  // Moved, not copied: the view holds whole trees.
  const CPendingEdits edits = std::move(*this);
  Forget();
  if (edits.m_eChange == Change::kNone) return !edits.m_bFailed;
  if (edits.m_bFailed) {
    strError = edits.m_strPath + " was left as it was";
    return false;
  }
  // The view was made from the file as last read; when the command has let
  // the lock go since (to wait for an answer), another command may have
  // replaced it.
  if (edits.m_nReadHolding != CommandLockHolding()) {
    std::string strText;
    const IniRead eRead = ReadTextFile(edits.m_strPath, strText, strError);
    if (eRead == IniRead::kError) return false;
    if (eRead != edits.m_eDiskRead || strText != edits.m_strDiskText) {
      strError = edits.m_strPath + " was changed by another command meanwhile; this command's change was not made";
      return false;
    }
  }
  // Like its writes, the removal of a working copy is not waited for on
  // disk: a power cut may bring back edits that were saved or discarded.
  if (edits.m_eChange == Change::kRemove) return RemoveFile(edits.m_strPath, strError, Flush::kNone);
  if (!CheckEntries(edits.m_tree, strError)) {
    strError = edits.m_strPath + ": " + strError + "; the file was left as it was";
    return false;
  }
  // Pending edits are a working copy: an edit is not waited for on disk (the
  // wait would be most of the command's time), only a save is.
  return WriteIniFile(edits.m_strPath, edits.m_tree, strError, Flush::kNone);
}

}  // namespace devhost
