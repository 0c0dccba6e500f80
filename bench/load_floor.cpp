// The floors under ktl-cli's commands. bench/whole_command.sh times them
// beside the commands.
//
//   load_floor PLUGIN_PATH [STATE_DIR]
//
// ktl-cli's own executable image (the host built in, the same exports)
// started, the plug-in loaded as ktl-cli loads it and its factory looked
// up: the part of every command that none of its work can remove. With
// STATE_DIR it then does the least file work that any edit must do there,
// without parsing or checking anything: take the lock, read the pending
// file, replace it atomically (a new file exchanged with the old, which is
// then removed, as the host does) and append an audit line.
#include <dlfcn.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <unistd.h>

#include <iostream>
#include <string>

namespace {

bool MinimalEditFileWork(const std::string& strDir) {
  const int fdLock = open((strDir + "/floor.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (fdLock < 0 || flock(fdLock, LOCK_EX) != 0) return false;
  const std::string strPending = strDir + "/floor.edit.ini";
  char buffer[4096];
  ssize_t nRead = 0;
  const int fdRead = open(strPending.c_str(), O_RDONLY | O_CLOEXEC);
  if (fdRead >= 0) {
    nRead = read(fdRead, buffer, sizeof(buffer));
    close(fdRead);
  }
  const std::string strText = "[Syslog]\nOutput=0x11\n" + std::string(buffer, nRead > 0 ? nRead : 0).substr(0, 300);
  const std::string strTemp = strPending + ".tmp";
  const int fdWrite = open(strTemp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
  if (fdWrite < 0 || write(fdWrite, strText.data(), strText.size()) < 0 || close(fdWrite) != 0) return false;
  if (renameat2(AT_FDCWD, strTemp.c_str(), AT_FDCWD, strPending.c_str(), RENAME_EXCHANGE) != 0 &&
      rename(strTemp.c_str(), strPending.c_str()) != 0) {
    return false;
  }
  unlink(strTemp.c_str());
  const int fdAudit = open((strDir + "/floor.audit.log").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  const std::string strLine = "2026-11-25T00:00:00 user=floor session=1 status=0 logger -syslogoutput on\n";
  if (fdAudit < 0 || write(fdAudit, strLine.data(), strLine.size()) < 0) return false;
  close(fdAudit);
  close(fdLock);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 && argc != 3) {
    std::cerr << "usage: load_floor PLUGIN_PATH [STATE_DIR]" << std::endl;
    return 2;
  }
  void* pHandle = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (pHandle == nullptr || dlsym(pHandle, "GetCommandFactorylogger") == nullptr) {
    std::cerr << "load_floor: " << dlerror() << std::endl;
    return 1;
  }
  if (argc == 3 && !MinimalEditFileWork(argv[2])) {
    perror("load_floor");
    return 1;
  }
  std::cout << "loaded" << std::endl;
  dlclose(pHandle);
  return 0;
}
