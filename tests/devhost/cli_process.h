// Runs ktl-cli as a separate process with the test process's environment,
// a given standard input, and its output captured. With bOtherSession the
// command runs under a shell that stays alive while it runs, so that its
// session (the parent process) differs from the test process's.
#ifndef KTL_TESTS_DEVHOST_CLI_PROCESS_H
#define KTL_TESTS_DEVHOST_CLI_PROCESS_H

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "tests/devhost/devhost_test_support.h"

extern char** environ;

namespace devhost_test {

struct CliRun {
  int nExitStatus = -1;  // -1 when the process did not exit normally
  std::string strOut;
  std::string strErr;
};

// strScratchDir receives the files that hold standard input and output.
inline CliRun RunCli(const std::vector<std::string>& vecWords, const std::string& strScratchDir,
                     const std::string& strStdin = "", bool bOtherSession = false) {
  std::vector<std::string> vecArgs;
  if (bOtherSession) vecArgs = {"/bin/sh", "-c", "\"$0\" \"$@\"; exit $?"};
  vecArgs.push_back(KTL_CLI_PATH);
  vecArgs.insert(vecArgs.end(), vecWords.begin(), vecWords.end());
  std::vector<char*> argv;
  for (std::string& strArg : vecArgs) argv.push_back(&strArg[0]);
  argv.push_back(nullptr);

  const std::string strIn = strScratchDir + "/cli.in", strOut = strScratchDir + "/cli.out",
                    strErr = strScratchDir + "/cli.err";
  WriteFile(strIn, strStdin);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, strIn.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, strOut.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, strErr.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  CliRun run;
  pid_t pid;
  const int nSpawn = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  EXPECT_EQ(nSpawn, 0) << argv[0];
  int nStatus = 0;
  if (nSpawn == 0 && waitpid(pid, &nStatus, 0) == pid && WIFEXITED(nStatus)) run.nExitStatus = WEXITSTATUS(nStatus);
  run.strOut = ReadFile(strOut);
  run.strErr = ReadFile(strErr);
  return run;
}

}  // namespace devhost_test

#endif
