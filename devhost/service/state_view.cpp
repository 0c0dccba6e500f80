#include "devhost/service/state_view.h"

#include "devhost/files/paths.h"

namespace devhost {

CStateFiles StateFilesNow() {
  CStateFiles files;
  files.strDir = StateDir();
  files.strEffective = files.strDir + "/logger.ini";
  files.strPending = files.strDir + "/logger.edit.ini";
  files.strDefault = DefaultConfFile();
  return files;
}

CStateView& CStateView::OfThisCommand() {
  static CStateView view;
  return view;
}

bool CStateView::Lock(std::string& strError) {
  m_bOpen = false;
  m_bHasEffective = false;
  m_effective.clear();
  m_files = StateFilesNow();
  if (isCommandLockHeld()) return true;
  std::unique_ptr<CCommandLock> pLock(new CCommandLock);
  if (!pLock->Acquire(strError)) return false;
  m_pOwnLock = std::move(pLock);
  return true;
}

void CStateView::Opened(int nStatus) {
  m_bOpen = true;
  m_nHolding = CommandLockHolding();
  m_nStatus = nStatus;
}

void CStateView::KeepEffective(const IniTree& tree) {
  m_effective = tree;
  m_bHasEffective = true;
}

void CStateView::Forget() {
  m_bOpen = false;
  m_bSaved = false;
  m_bHasEffective = false;
  m_effective.clear();
  m_pOwnLock.reset();
}

}  // namespace devhost
