// CKtlUtil::ExecSystemCmd: runs a shell command with its standard output in
// a private temporary file.
//
// The command "/bin/mount" (exactly) runs devhost::MountCommand() instead, so
// that tests and development machines can supply their own mount table. The
// command's standard input is /dev/null, so that it cannot take the
// operator's answers to later questions; its standard error is the host's.
// Its exit status is not looked at: the caller judges the output.
#include "host/ktl_util.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <iostream>
#include <vector>

#include "devhost/files/fault_injection.h"
#include "devhost/files/leftovers.h"
#include "devhost/files/paths.h"
#include "devhost/utilities/format.h"
#include "devhost/utilities/terminal_text.h"

extern char** environ;

namespace {

const char kMountCommand[] = "/bin/mount";
// Output files: ktl-cmd-<pid>.XXXXXX in TMPDIR, else in /tmp.
const char kOutputFilePrefix[] = "ktl-cmd-";
const char kFallbackTempDir[] = "/tmp";

// Runs strCommand with /bin/sh, its standard output going to fdOutput, and
// waits for it.
void RunShellCommand(const std::string& strCommand, int fdOutput) {
  posix_spawn_file_actions_t actions;
  if (posix_spawn_file_actions_init(&actions) != 0) return;
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, fdOutput, STDOUT_FILENO);
  std::string strShell = "sh", strOption = "-c", strScript = strCommand;
  char* argv[] = {&strShell[0], &strOption[0], &strScript[0], nullptr};
  pid_t pid;
  if (posix_spawn(&pid, "/bin/sh", &actions, nullptr, argv, environ) == 0) {
    int nStatus;
    while (waitpid(pid, &nStatus, 0) < 0 && errno == EINTR) {
    }
  }
  posix_spawn_file_actions_destroy(&actions);
}

// A new output file in strDir: its descriptor and path, or -1 with errno set.
int CreateOutputFile(const std::string& strDir, std::string& strPath) {
  const std::string strTemplate = strDir + "/" + devhost::TempFileTemplate(kOutputFilePrefix);
  std::vector<char> path(strTemplate.begin(), strTemplate.end());
  path.push_back('\0');
  strPath = strTemplate;
  const int nInjected = devhost::InjectedOpenError(strTemplate);
  if (nInjected != 0) {
    errno = nInjected;
    return -1;
  }
  // Mode 0600: the output may tell what is mounted where.
  const int fd = mkostemp(path.data(), O_CLOEXEC);
  strPath = path.data();
  return fd;
}

}  // namespace

// Returns the output file's path, which the caller reads and removes. A
// TMPDIR where no file can be made gives way to /tmp, as for other programs
// that use mkstemp. When no file can be created there either, that is said
// on standard error and the path returned names no file, so the caller's
// open fails and it reports the failure too.
std::string CKtlUtil::ExecSystemCmd(const char* pszFormat, ...) {
  va_list args;
  va_start(args, pszFormat);
  std::string strCommand = devhost::FormatV(pszFormat, args);
  va_end(args);
  if (strCommand == kMountCommand) strCommand = devhost::MountCommand();

  const std::string strDir = devhost::TempDir();
  // Output files of commands killed before their caller removed them.
  devhost::RemoveLeftovers(strDir, kOutputFilePrefix, true);
  std::string strPath;
  int fd = CreateOutputFile(strDir, strPath);
  if (fd < 0) {
    const int nErrno = errno;
    std::string strProblem = devhost::EscapeControlBytes(strDir) + ": " + std::strerror(nErrno);
    if (strDir != kFallbackTempDir) {
      fd = CreateOutputFile(kFallbackTempDir, strPath);
      if (fd < 0) strProblem += "; nor in " + std::string(kFallbackTempDir) + ": " + std::strerror(errno);
    }
    if (fd < 0) {
      std::cerr << "ktl-cli: cannot create a temporary file in " << strProblem << std::endl;
      return strPath;  // still the template, which names no file
    }
  }
  RunShellCommand(strCommand, fd);
  close(fd);
  return strPath;
}
