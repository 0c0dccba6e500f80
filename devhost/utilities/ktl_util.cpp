// CKtlUtil::ExecSystemCmd: runs a shell command with its standard output in
// a private temporary file.
//
// The command "/bin/mount" (exactly) runs devhost::MountCommand() instead, so
// that tests and development machines can supply their own mount table, and
// runs once per command: later requests of the same command get a copy of
// its listing (devhost/utilities/mount_snapshot.h). The command's standard
// input is /dev/null, so that it cannot take the operator's answers to later
// questions; its standard error is the host's. Its exit status is not looked
// at: the caller judges the output.
#include "host/ktl_util.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <iostream>
#include <vector>

#include "devhost/files/descriptor_io.h"
#include "devhost/files/fault_injection.h"
#include "devhost/files/leftovers.h"
#include "devhost/files/paths.h"
#include "devhost/utilities/format.h"
#include "devhost/utilities/mount_snapshot.h"
#include "devhost/utilities/terminal_text.h"

namespace {

const char kMountCommand[] = "/bin/mount";
// Output files: ktl-cmd-<pid>.XXXXXX in TMPDIR, else in /tmp.
const char kOutputFilePrefix[] = "ktl-cmd-";
const char kFallbackTempDir[] = "/tmp";

// Starts the program pszPath with argv, its standard output going to
// fdOutput, and waits for it. False when it could not be started.
bool SpawnAndWait(const char* pszPath, char* const argv[], int fdOutput) {
  posix_spawn_file_actions_t actions;
  if (posix_spawn_file_actions_init(&actions) != 0) return false;
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, fdOutput, STDOUT_FILENO);
  pid_t pid;
  const bool bStarted = posix_spawn(&pid, pszPath, &actions, nullptr, argv, environ) == 0;
  if (bStarted) {
    int nStatus;
    while (waitpid(pid, &nStatus, 0) < 0 && errno == EINTR) {
    }
  }
  posix_spawn_file_actions_destroy(&actions);
  return bStarted;
}

// A command line that is one absolute path without any character the shell
// would interpret: the shell would do nothing but run that program.
bool isPlainProgramPath(const std::string& strCommand) {
  if (strCommand.empty() || strCommand[0] != '/') return false;
  for (const unsigned char c : strCommand) {
    if (!std::isalnum(c) && std::strchr("/._+-", c) == nullptr) return false;
  }
  return true;
}

// Whether the kernel can start strPath itself: an executable regular file
// that is an ELF image or a "#!" script. Anything else (missing, not
// executable, a script without "#!") is left to the shell, which runs it or
// says why, as it always did. Decided beforehand because a failed start is
// not always reported by posix_spawn (not under qemu-user, whose vfork is a
// fork).
bool isDirectlyExecutable(const std::string& strPath) {
  if (access(strPath.c_str(), X_OK) != 0) return false;
  const int fd = open(strPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (fd < 0) return false;
  struct stat st;
  char magic[4] = {};
  const bool bExecutable = fstat(fd, &st) == 0 && S_ISREG(st.st_mode) && read(fd, magic, sizeof magic) >= 2 &&
                           (std::memcmp(magic, "\177ELF", 4) == 0 || std::memcmp(magic, "#!", 2) == 0);
  close(fd);
  return bExecutable;
}

// Runs strCommand as /bin/sh -c would, its standard output going to
// fdOutput, and waits for it. A program the kernel can start by its path is
// started directly, which spares a shell's start (as long again as
// /bin/mount's own run); anything else, or a start that fails, goes to the
// shell, which says why as it always did.
void RunCommand(const std::string& strCommand, int fdOutput) {
  std::string strProgram = strCommand;
  char* programArgv[] = {&strProgram[0], nullptr};
  if (isPlainProgramPath(strCommand) && isDirectlyExecutable(strCommand) &&
      SpawnAndWait(strProgram.c_str(), programArgv, fdOutput)) {
    return;
  }
  std::string strShell = "sh", strOption = "-c", strScript = strCommand;
  char* shellArgv[] = {&strShell[0], &strOption[0], &strScript[0], nullptr};
  SpawnAndWait("/bin/sh", shellArgv, fdOutput);
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
// NOLINTNEXTLINE(cert-dcl50-cpp): the binary contract declares ExecSystemCmd with a printf-style format.
std::string CKtlUtil::ExecSystemCmd(const char* pszFormat, ...) {
  va_list args;
  va_start(args, pszFormat);
  std::string strCommand = devhost::FormatV(pszFormat, args);
  va_end(args);
  const bool bMountListing = strCommand == kMountCommand;
  if (bMountListing) strCommand = devhost::MountCommand();

  const std::string strDir = devhost::TempDir();
  // Output files of commands killed before their caller removed them, looked
  // for once per process and directory: TMPDIR may hold many files, and a
  // command may ask for several outputs.
  static std::string s_strSweptDir;
  if (strDir != s_strSweptDir) {
    devhost::RemoveLeftovers(strDir, kOutputFilePrefix, true);
    s_strSweptDir = strDir;
  }
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
  std::string strListing;
  if (bMountListing && devhost::SnapshotListing(strListing)) {
    if (!devhost::WriteAll(fd, strListing)) {
      std::cerr << "ktl-cli: cannot write the mount listing to " << devhost::EscapeControlBytes(strPath) << ": "
                << std::strerror(errno) << std::endl;
    }
  } else {
    RunCommand(strCommand, fd);
    std::string strTaken;
    if (bMountListing && lseek(fd, 0, SEEK_SET) == 0 && devhost::ReadAll(fd, strTaken)) {
      devhost::KeepSnapshotListing(strTaken);
    }
  }
  close(fd);
  return strPath;
}
