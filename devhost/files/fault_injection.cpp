#include "devhost/files/fault_injection.h"

#include <signal.h>

#include "devhost/files/paths.h"

namespace devhost {

void BeforeFileChange() {
  static const unsigned long nKillAt = FaultKillAt();
  static unsigned long nChanges = 0;
  if (nKillAt != 0 && ++nChanges == nKillAt) raise(SIGKILL);  // NOLINT(cert-err33-c): SIGKILL does not return
}

}  // namespace devhost
