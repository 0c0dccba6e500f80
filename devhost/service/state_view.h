// The logging tool's state as one command sees it.
//
// A command is one short transaction. The first service call that needs the
// state takes the state directory's lock (the command lock, which ktl-cli
// already holds; a caller without it, a test driving the accessor, say,
// takes it here), makes sure the configuration in effect exists, and reads
// and checks each file once. Later calls of the same command answer from
// what was read. Only a question, which lets the lock go while the operator
// thinks, makes the view read again: another command may have run meanwhile.
#ifndef KTL_DEVHOST_STATE_VIEW_H
#define KTL_DEVHOST_STATE_VIEW_H

#include <memory>
#include <string>

#include "devhost/files/command_lock.h"
#include "devhost/files/ini_store.h"

namespace devhost {

// The service's files, from the environment when the view is opened.
struct CStateFiles {
  std::string strDir;
  std::string strEffective;  // logger.ini, the configuration in effect
  std::string strPending;    // logger.edit.ini, the pending configuration
  std::string strDefault;    // the shipped default
};

// The names of the service's files under devhost::StateDir() as the
// environment gives it now: the one place that names them.
CStateFiles StateFilesNow();

class CStateView {
 public:
  static CStateView& OfThisCommand();

  // True when the view was opened under the lock holding of now.
  bool isOpen() const { return m_bOpen && m_nHolding == CommandLockHolding(); }

  // Starts an opening: the files' names, and the lock unless this process
  // holds it. False, with strError set, when the lock cannot be taken.
  bool Lock(std::string& strError);
  // Notes the opening done with its result, which every later call of the
  // same holding gets.
  void Opened(int nStatus);
  int Status() const { return m_nStatus; }

  const CStateFiles& Files() const { return m_files; }

  // The configuration in effect as read and checked under this holding;
  // nullptr before it was.
  const IniTree* Effective() const { return isOpen() && m_bHasEffective ? &m_effective : nullptr; }
  void KeepEffective(const IniTree& tree);

  // Notes that this command replaced the configuration in effect.
  void NoteSaved() { m_bSaved = true; }
  bool wasSaved() const { return m_bSaved; }

  // Drops what was read, and the lock when the view took it.
  void Forget();

 private:
  CStateFiles m_files;
  bool m_bOpen = false;
  unsigned long m_nHolding = 0;
  int m_nStatus = 0;
  bool m_bHasEffective = false;
  IniTree m_effective;
  bool m_bSaved = false;
  std::unique_ptr<CCommandLock> m_pOwnLock;
};

}  // namespace devhost

#endif
