// Whole reads and writes on a descriptor (see descriptor_io.h).
#include "devhost/files/descriptor_io.h"

#include <unistd.h>

#include <cerrno>
#include <cstddef>

namespace devhost {

bool ReadAll(int nFd, std::string& strContent) {
  char buffer[8192];
  for (;;) {
    const ssize_t nRead = read(nFd, buffer, sizeof buffer);
    if (nRead == 0) return true;
    if (nRead < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    strContent.append(buffer, static_cast<std::size_t>(nRead));
  }
}

bool WriteAll(int nFd, const std::string& strContent, void (*pfnBeforeEachWrite)()) {
  const char* pCursor = strContent.data();
  std::size_t nLeft = strContent.size();
  while (nLeft > 0) {
    if (pfnBeforeEachWrite) pfnBeforeEachWrite();
    const ssize_t nWritten = write(nFd, pCursor, nLeft);
    if (nWritten < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    pCursor += nWritten;
    nLeft -= static_cast<std::size_t>(nWritten);
  }
  return true;
}

}  // namespace devhost
