#include "devhost/cli/standard_descriptors.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace devhost {

bool FillClosedStandardDescriptors() {
  for (int nFd = STDIN_FILENO; nFd <= STDERR_FILENO; ++nFd) {
    if (fcntl(nFd, F_GETFD) != -1 || errno != EBADF) continue;
    // The lowest free number is nFd itself: those below it are open.
    const int nOpened = open("/dev/null", nFd == STDIN_FILENO ? O_RDONLY : O_WRONLY);
    if (nOpened != nFd) return false;
  }
  return true;
}

}  // namespace devhost
