// The pending configuration as one command sees and changes it.
//
// A command makes several service calls: "-mp" reads NumFileSys and then
// writes NumFileSys and three keys of an entry. Written one by one, a
// command killed between them would leave half an entry. So the calls of a
// command work on this in-memory view of the pending file, which holds both
// the pending keys and the session that owns them; the view is written once,
// by one atomic replacement (or removal) of the file, when the command's
// Exec has returned (CommitPendingEdits). A command killed at any point
// leaves the file as it was before the command or as it is after it.
//
// The file is read once per holding of the state directory's lock
// (devhost/files/command_lock.h). Until the command changes the view, it
// follows the file: a command that waited for an answer to its question,
// with the lock let go, reads it again and sees what other commands did
// meanwhile. A change is committed only if the file is still the one it was
// made to, and only if nothing in the command failed: a refused edit or an
// unreadable file leaves the file as it was.
#ifndef KTL_DEVHOST_PENDING_EDITS_H
#define KTL_DEVHOST_PENDING_EDITS_H

#include <string>

#include "devhost/files/ini_store.h"
#include "devhost/service/edit_session.h"

namespace devhost {

class CPendingEdits {
 public:
  // The view of the running command, one per process.
  static CPendingEdits& OfThisCommand();

  // Reads strPendingFile again unless this command has changed its view, or
  // read it under the lock that this process holds now. False, with strError naming the file, when it
  // cannot be read. A file that is not a valid INI file reads as edits
  // without an owner, so that it can be discarded or taken over.
  bool Refresh(const std::string& strPendingFile, std::string& strError);

  // True when the view holds pending edits. An empty file holds none: a
  // pending file is never written empty, and an empty one is what a power
  // cut can leave of a write that had not reached the disk.
  bool hasEdits() const { return m_bHasEdits; }
  // The pending configuration; empty when there are no edits. False (with
  // strError) when the file is not a valid INI file.
  bool Tree(IniTree& tree, std::string& strError) const;
  // True when the command saw pending edits at first that are now gone: they
  // were dropped while it waited for an answer.
  bool wereDroppedMeanwhile() const { return m_bSawEdits && !m_bHasEdits; }
  // The pending configuration as the command first saw it; empty when it
  // saw none or it cannot be parsed. Kept as text: it is seldom needed.
  IniTree FirstSeen() const;

  // True once the command has changed the view. Its tree was checked when
  // read and each edit as it came; only at the commit must it be whole.
  bool isChanged() const { return m_eChange != Change::kNone; }

  // Whose the edits are for nSession. Whether a recorded owner other than
  // nSession still lives is looked up once per reading of the file.
  PendingOwner OwnerFor(int nSession) const;
  // The recorded owner's session, 0 when none, and the whole record.
  int OwnerSession() const { return m_owner.nSession; }
  const CSessionRecord& Owner() const { return m_owner; }

  // Changes of the view, committed later.
  void Replace(const IniTree& tree, int nSession);
  void Remove();
  // Something in the command failed: commit nothing.
  void Fail() { m_bFailed = true; }
  bool hasFailed() const { return m_bFailed; }

  // Drops the view and any change of it, as at the start of a command.
  void Forget() { *this = CPendingEdits(); }

  // Writes the view's change, if any; the caller holds the lock. The file is
  // read again only when the lock was let go since it was read. True when
  // there was nothing to write or it was written; otherwise false, with
  // strError naming the file and the reason. Forgets the view either way.
  bool Commit(std::string& strError);

 private:
  enum class Change { kNone, kReplace, kRemove };

  std::string m_strPath;
  IniRead m_eDiskRead = IniRead::kMissing;
  std::string m_strDiskText;  // the file as last read
  std::string m_strParseError;
  IniTree m_tree;
  std::string m_strFirstSeenText;
  bool m_bHasEdits = false;
  bool m_bSawEdits = false;
  bool m_bRead = false;
  unsigned long m_nReadHolding = 0;  // the lock holding it was read under
  CSessionRecord m_owner;
  enum class Liveness { kUnknown, kLive, kEnded };
  mutable Liveness m_eOwnerLiveness = Liveness::kUnknown;
  Change m_eChange = Change::kNone;
  bool m_bFailed = false;
};

// Commits the running command's pending edits (see above); on failure says
// so on standard error. ktl-cli calls it once its command's Exec returned.
// The command's view of the state (devhost/service/state_view.h) is
// forgotten either way.
bool CommitPendingEdits();

}  // namespace devhost

#endif
