#include "devhost/files/append_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "devhost/files/fault_injection.h"
#include "devhost/files/safe_open.h"

namespace devhost {

bool AppendToFile(const std::string& strPath, const std::string& strText, std::string& strError) {
  struct stat st;
  const int fd = OpenNoFollow(strPath, O_WRONLY | O_APPEND | O_CREAT, 0600, strError, FileKind::kRegularOrTerminal, st);
  if (fd < 0) return false;
  // A device keeps nothing that the host reads back: only a file is
  // checked for who may change it.
  if (S_ISREG(st.st_mode) && !isTrustedFile(st, strPath, strError)) {
    close(fd);
    return false;
  }
  ssize_t nWritten;
  BeforeFileChange();
  do {
    nWritten = write(fd, strText.data(), strText.size());
  } while (nWritten < 0 && errno == EINTR);
  const bool bComplete = nWritten == static_cast<ssize_t>(strText.size());
  const int nWriteError = nWritten < 0 ? errno : ENOSPC;  // a short write means a full disk
  if (close(fd) != 0 && bComplete) {
    strError = "cannot write " + strPath + ": " + std::strerror(errno);
    return false;
  }
  if (!bComplete) strError = "cannot write " + strPath + ": " + std::strerror(nWriteError);
  return bComplete;
}

}  // namespace devhost
