// Runs ktl-cli as a separate process with the test process's environment,
// a given standard input, and its output captured. With bOtherSession the
// command runs under a shell that stays alive while it runs, so that its
// session (the parent process) differs from the test process's.
//
// KTL_CLI_WRAPPER, when set, holds a command line (words separated by
// spaces, the first one a path) put in front of ktl-cli, e.g. a memory
// checker with its options.
#ifndef KTL_TESTS_DEVHOST_CLI_PROCESS_H
#define KTL_TESTS_DEVHOST_CLI_PROCESS_H

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "tests/devhost/devhost_test_support.h"

extern char** environ;

namespace devhost_test {

// The words of KTL_CLI_WRAPPER; none when it is unset.
inline std::vector<std::string> CliWrapperWords() {
  std::vector<std::string> vecWords;
  if (const char* pszWrapper = std::getenv("KTL_CLI_WRAPPER")) {
    std::istringstream in(pszWrapper);
    for (std::string strWord; in >> strWord;) vecWords.push_back(strWord);
  }
  return vecWords;
}

// Where a started ktl-cli reads from and writes to.
struct CliFiles {
  std::string strIn = "/dev/null";
  std::string strOut = "/dev/null";
  std::string strErr = "/dev/null";
};

// Starts ktl-cli with the words; the caller waits for it. -1 when it could
// not be started.
inline pid_t SpawnCli(const std::vector<std::string>& vecWords, const CliFiles& files = CliFiles(),
                      bool bOtherSession = false) {
  std::vector<std::string> vecArgs;
  if (bOtherSession) vecArgs = {"/bin/sh", "-c", "\"$0\" \"$@\"; exit $?"};
  const std::vector<std::string> vecWrapper = CliWrapperWords();
  vecArgs.insert(vecArgs.end(), vecWrapper.begin(), vecWrapper.end());
  vecArgs.push_back(KTL_CLI_PATH);
  vecArgs.insert(vecArgs.end(), vecWords.begin(), vecWords.end());
  std::vector<char*> argv;
  for (std::string& strArg : vecArgs) argv.push_back(&strArg[0]);
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, files.strIn.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, files.strOut.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                   0600);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, files.strErr.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                   0600);
  pid_t pid = -1;
  const int nSpawn = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  EXPECT_EQ(nSpawn, 0) << argv[0];
  return nSpawn == 0 ? pid : -1;
}

// The exit status of a child, -1 when it did not exit normally.
inline int WaitExit(pid_t pid) {
  int nStatus = 0;
  if (pid < 0 || waitpid(pid, &nStatus, 0) != pid || !WIFEXITED(nStatus)) return -1;
  return WEXITSTATUS(nStatus);
}

struct CliRun {
  int nExitStatus = -1;  // -1 when the process did not exit normally
  std::string strOut;
  std::string strErr;
};

// Runs ktl-cli to its end. strScratchDir receives the files that hold
// standard input and output.
inline CliRun RunCli(const std::vector<std::string>& vecWords, const std::string& strScratchDir,
                     const std::string& strStdin = "", bool bOtherSession = false) {
  CliFiles files;
  files.strIn = strScratchDir + "/cli.in";
  files.strOut = strScratchDir + "/cli.out";
  files.strErr = strScratchDir + "/cli.err";
  WriteFile(files.strIn, strStdin);
  CliRun run;
  run.nExitStatus = WaitExit(SpawnCli(vecWords, files, bOtherSession));
  run.strOut = ReadFile(files.strOut);
  run.strErr = ReadFile(files.strErr);
  return run;
}

}  // namespace devhost_test

#endif
