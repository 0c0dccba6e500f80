// Runs ktl-cli as a separate process with the test process's environment,
// and the fixture of the "logger" command run that way. Every ktl-cli here
// runs in the test's own terminal session.
//
// KTL_CLI_WRAPPER, when set, holds a command line (words separated by
// spaces, the first one a path) put in front of ktl-cli, e.g. a memory
// checker with its options. A cross build compiles in KTL_CLI_EMULATOR, the
// emulator's command line, which goes right before ktl-cli.
#ifndef KTL_TESTS_DEVHOST_CLI_PROCESS_H
#define KTL_TESTS_DEVHOST_CLI_PROCESS_H

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "tests/devhost/devhost_test_support.h"

extern char** environ;

namespace devhost_test {

// Starts ktl-cli with the words; the caller waits for it. Standard input,
// output and error are strFiles + ".in", ".out" and ".err", or /dev/null
// when strFiles is empty. -1 when it could not be started.
inline pid_t SpawnCli(const std::vector<std::string>& vecWords, const std::string& strFiles = "") {
  std::vector<std::string> vecArgs;
  const auto addWords = [&vecArgs](const char* pszWords) {
    std::istringstream in(pszWords);
    for (std::string strWord; in >> strWord;) vecArgs.push_back(strWord);
  };
  if (const char* pszWrapper = std::getenv("KTL_CLI_WRAPPER")) addWords(pszWrapper);
#ifdef KTL_CLI_EMULATOR
  addWords(KTL_CLI_EMULATOR);
#endif
  vecArgs.push_back(KTL_CLI_PATH);
  vecArgs.insert(vecArgs.end(), vecWords.begin(), vecWords.end());
  std::vector<char*> argv;
  for (std::string& strArg : vecArgs) argv.push_back(&strArg[0]);
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  const char* const kSuffixes[] = {".in", ".out", ".err"};  // by file descriptor
  for (int nFd = STDIN_FILENO; nFd <= STDERR_FILENO; ++nFd) {
    const std::string strFile = strFiles.empty() ? "/dev/null" : strFiles + kSuffixes[nFd];
    posix_spawn_file_actions_addopen(&actions, nFd, strFile.c_str(), nFd == 0 ? O_RDONLY : O_WRONLY | O_CREAT | O_TRUNC,
                                     0600);
  }
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
                     const std::string& strStdin = "") {
  const std::string strFiles = strScratchDir + "/cli";
  WriteFile(strFiles + ".in", strStdin);
  CliRun run;
  run.nExitStatus = WaitExit(SpawnCli(vecWords, strFiles));
  run.strOut = ReadFile(strFiles + ".out");
  run.strErr = ReadFile(strFiles + ".err");
  return run;
}

}  // namespace devhost_test

// The "logger" command run through ktl-cli against a temporary state
// directory, with the real plug-in, catalogue, templates and default
// configuration. The mount listing comes from a script that lists /data,
// /backup and /m1 to /m9, so the tests do not depend on the machine.
class LoggerCliTest : public devhost_test::DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    SetEnv("KTL_PLUGIN_DIR", KTL_PLUGIN_DIR_FOR_TESTS);
    SetEnv("KTL_CATALOGUE", KTL_SOURCE_DIR "/devhost/catalogue/messages.ini");
    SetEnv("KTL_TEMPLATE_DIR", KTL_SOURCE_DIR "/devhost/templates");
    SetEnv("KTL_DEFAULT_CONF", KTL_SOURCE_DIR "/devhost/default/logger.ini");
    SetEnv("KTL_ROOT", Path("root"));
    devhost_test::WriteFile(Path("mount.sh"),
                            "#!/bin/sh\n"
                            "echo '/dev/sdb1 on /data type ext4 (rw,relatime)'\n"
                            "echo '/dev/sdc1 on /backup type xfs (rw)'\n"
                            "for n in 1 2 3 4 5 6 7 8 9; do echo \"tmpfs on /m$n type tmpfs (rw)\"; done\n");
    chmod(Path("mount.sh").c_str(), 0700);
    SetEnv("KTL_MOUNT_CMD", Path("mount.sh"));
  }

  devhost_test::CliRun Run(const std::vector<std::string>& vecWords, const std::string& strStdin = "") {
    return devhost_test::RunCli(LoggerWords(vecWords), m_strDir, strStdin);
  }
  // Runs a command that must succeed.
  void RunOk(const std::vector<std::string>& vecWords, const std::string& strStdin = "") {
    const devhost_test::CliRun run = Run(vecWords, strStdin);
    ASSERT_EQ(run.nExitStatus, 0) << vecWords[0] << ": " << run.strErr;
  }
  static std::vector<std::string> LoggerWords(const std::vector<std::string>& vecWords) {
    std::vector<std::string> vecArgs = {"logger"};
    vecArgs.insert(vecArgs.end(), vecWords.begin(), vecWords.end());
    return vecArgs;
  }
  std::string Effective() { return devhost_test::ReadFile(StateFile("logger.ini")); }
  std::string Pending() { return devhost_test::ReadFile(StateFile("logger.edit.ini")); }
};

#endif
