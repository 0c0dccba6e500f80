#include "devhost/files/command_lock.h"

#include "devhost/files/leftovers.h"
#include "devhost/files/paths.h"
#include "devhost/files/state_directory.h"

namespace devhost {

namespace {

const char kCommandLockFileName[] = "/ktl-cli.lock";
// Temporary files of atomic replacements: <file>.tmp.<pid>.XXXXXX.
const char kTempFileInfix[] = ".tmp.";

// The command lock this process holds, for CCommandLockReleased.
CStateLock* g_pHeldCommandLock = nullptr;

}  // namespace

CCommandLock::~CCommandLock() {
  if (m_bRegistered) g_pHeldCommandLock = nullptr;
}

bool CCommandLock::Acquire(std::string& strError) {
  const std::string strDir = StateDir();
  if (!PrepareStateDir(strError) || !m_lock.Acquire(strDir + kCommandLockFileName, strError)) return false;
  RemoveLeftovers(strDir, kTempFileInfix, false);
  g_pHeldCommandLock = &m_lock;
  m_bRegistered = true;
  return true;
}

CCommandLockReleased::CCommandLockReleased() : m_pReleased(g_pHeldCommandLock) {
  if (m_pReleased) m_pReleased->Unlock();
}

CCommandLockReleased::~CCommandLockReleased() {
  if (m_pReleased) m_pReleased->Relock();
}

}  // namespace devhost
