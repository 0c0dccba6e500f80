#include "devhost/files/append_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace devhost {

bool AppendToFile(const std::string& strPath, const std::string& strText) {
  const int fd = open(strPath.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
  if (fd < 0) return false;
  ssize_t nWritten;
  do {
    nWritten = write(fd, strText.data(), strText.size());
  } while (nWritten < 0 && errno == EINTR);
  const bool bComplete = nWritten == static_cast<ssize_t>(strText.size());
  const int nWriteError = nWritten < 0 ? errno : ENOSPC;  // a short write means a full disk
  if (close(fd) != 0 && bComplete) return false;           // errno tells why
  if (!bComplete) errno = nWriteError;
  return bComplete;
}

}  // namespace devhost
