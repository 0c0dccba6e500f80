// Ctrl-C while the shell runs a line's command. A one-shot ktl-cli ends on
// Ctrl-C, as any program does (its files stay whole). The shell instead ends
// only the wait the command is in: an open question counts as unanswered,
// and a wait for the state directory's lock gives up, so the operator gets
// the prompt back. Work that is already under way finishes.
#ifndef KTL_DEVHOST_INTERRUPT_H
#define KTL_DEVHOST_INTERRUPT_H

#include <signal.h>

namespace devhost {

// From construction to destruction, SIGINT is recorded instead of ending
// the process, and it interrupts a blocking call (no SA_RESTART).
class CInterruptCatcher {
 public:
  CInterruptCatcher();
  ~CInterruptCatcher();
  CInterruptCatcher(const CInterruptCatcher&) = delete;
  CInterruptCatcher& operator=(const CInterruptCatcher&) = delete;

 private:
  struct sigaction m_previous;
};

// True once SIGINT came in under the current CInterruptCatcher.
bool isInterrupted();

}  // namespace devhost

#endif
