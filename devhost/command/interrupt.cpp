#include "devhost/command/interrupt.h"

namespace devhost {
namespace {

volatile sig_atomic_t g_bInterrupted = 0;

void RecordInterrupt(int) { g_bInterrupted = 1; }

}  // namespace

CInterruptCatcher::CInterruptCatcher() {
  g_bInterrupted = 0;
  struct sigaction action = {};
  action.sa_handler = RecordInterrupt;
  sigemptyset(&action.sa_mask);
  sigaction(SIGINT, &action, &m_previous);
}

CInterruptCatcher::~CInterruptCatcher() {
  sigaction(SIGINT, &m_previous, nullptr);
  g_bInterrupted = 0;
}

bool isInterrupted() { return g_bInterrupted != 0; }

}  // namespace devhost
