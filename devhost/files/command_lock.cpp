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
// Whether a question has let it go, and how often it was taken.
bool g_bReleased = false;
unsigned long g_nHolding = 0;
// The holding in which the leftovers were last removed.
unsigned long g_nLeftoversRemoved = 0;

}  // namespace

CCommandLock::~CCommandLock() {
  if (m_bRegistered) g_pHeldCommandLock = nullptr;
}

bool CCommandLock::Acquire(std::string& strError) {
  const std::string strDir = StateDir();
  if (!PrepareStateDir(strError) || !m_lock.Acquire(strDir + kCommandLockFileName, strError)) return false;
  g_pHeldCommandLock = &m_lock;
  g_bReleased = false;
  ++g_nHolding;
  m_bRegistered = true;
  return true;
}

CCommandLockReleased::CCommandLockReleased() : m_pReleased(g_bReleased ? nullptr : g_pHeldCommandLock) {
  if (!m_pReleased) return;
  m_pReleased->Unlock();
  g_bReleased = true;
}

CCommandLockReleased::~CCommandLockReleased() {
  if (!m_pReleased) return;
  m_pReleased->Relock();
  g_bReleased = false;
  ++g_nHolding;
}

bool isCommandLockHeld() { return g_pHeldCommandLock != nullptr && !g_bReleased; }

unsigned long CommandLockHolding() { return g_nHolding; }

void RemoveStateLeftovers() {
  // Without the lock ever taken (a test's direct write), every time.
  if (g_nHolding != 0 && g_nLeftoversRemoved == g_nHolding) return;
  RemoveLeftovers(StateDir(), kTempFileInfix, false);
  g_nLeftoversRemoved = g_nHolding;
}

}  // namespace devhost
