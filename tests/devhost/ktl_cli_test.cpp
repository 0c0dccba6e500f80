// ktl-cli run as a separate process: its usage, its errors when a plug-in
// or a factory is missing, the order of the protocol steps and its exit
// statuses. The probe plug-in prints each step it is asked to run.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/devhost/devhost_test_support.h"

extern char** environ;

namespace {

using devhost_test::DevhostTest;

struct CliRun {
  int nExitStatus = -1;
  std::string strOut;
  std::string strErr;
};

class KtlCliTest : public DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    m_env.Set("KTL_PLUGIN_DIR", KTL_TEST_PLUGIN_DIR);
    m_env.Set("KTL_CATALOGUE", KTL_SOURCE_DIR "/devhost/catalogue/messages.ini");
    m_env.Unset("KTL_PROBE_FAIL");
  }

  // Runs ktl-cli with the words and this process's environment (which the
  // test sets up); standard input is empty.
  CliRun Run(const std::vector<std::string>& vecWords) {
    std::vector<std::string> vecArgs = {KTL_CLI_PATH};
    vecArgs.insert(vecArgs.end(), vecWords.begin(), vecWords.end());
    std::vector<char*> argv;
    for (std::string& strArg : vecArgs) argv.push_back(&strArg[0]);
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, Path("out").c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, Path("err").c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     0600);
    CliRun run;
    pid_t pid;
    const int nSpawn = posix_spawn(&pid, KTL_CLI_PATH, &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    EXPECT_EQ(nSpawn, 0);
    int nStatus = 0;
    if (nSpawn == 0 && waitpid(pid, &nStatus, 0) == pid && WIFEXITED(nStatus)) run.nExitStatus = WEXITSTATUS(nStatus);
    run.strOut = devhost_test::ReadFile(Path("out"));
    run.strErr = devhost_test::ReadFile(Path("err"));
    return run;
  }
};

TEST_F(KtlCliTest, HelpExplainsUseExitStatusesAndEnvironment) {
  const CliRun run = Run({"--help"});
  EXPECT_EQ(run.nExitStatus, 0);
  for (const char* pszText : {"Usage: ktl-cli COMMAND", "Exit status", "KTL_STATE_DIR", "KTL_PLUGIN_DIR",
                              "KTL_TEMPLATE_DIR", "KTL_CATALOGUE", "KTL_DEFAULT_CONF", "KTL_ROOT", "KTL_MOUNT_CMD",
                              "KTL_TRACE_FILE", "KTL_TRACE_MASK", "TMPDIR"}) {
    EXPECT_NE(run.strOut.find(pszText), std::string::npos) << pszText;
  }
}

TEST_F(KtlCliTest, WithoutACommandPrintsUsageAsAnError) {
  const CliRun run = Run({});
  EXPECT_EQ(run.nExitStatus, 2);
  EXPECT_EQ(run.strOut, "");
  EXPECT_NE(run.strErr.find("Usage: ktl-cli COMMAND"), std::string::npos) << run.strErr;
}

TEST_F(KtlCliTest, ACommandNameCannotBeAPath) {
  const CliRun run = Run({"../probe"});
  EXPECT_EQ(run.nExitStatus, 2);
  EXPECT_NE(run.strErr.find("../probe"), std::string::npos) << run.strErr;
}

TEST_F(KtlCliTest, AMissingPlugInIsNamedWithItsPath) {
  m_env.Set("KTL_PLUGIN_DIR", m_strDir);
  const CliRun run = Run({"logger", "-confirm", "cur"});
  EXPECT_EQ(run.nExitStatus, 3);
  EXPECT_NE(run.strErr.find(m_strDir + "/libktl_cli-logger.so"), std::string::npos) << run.strErr;
  EXPECT_NE(run.strErr.find("No such file"), std::string::npos) << "dlerror() missing: " << run.strErr;
}

TEST_F(KtlCliTest, APlugInWithoutItsFactoryIsNamedWithTheSymbol) {
  const CliRun run = Run({"nofactory", "-x"});
  EXPECT_EQ(run.nExitStatus, 3);
  EXPECT_NE(run.strErr.find("GetCommandFactorynofactory"), std::string::npos) << run.strErr;
  EXPECT_NE(run.strErr.find("libktl_cli-nofactory.so"), std::string::npos) << run.strErr;
}

struct StepCase {
  const char* name;
  const char* pszFailingStep;  // "" for none
  int nExitStatus;
  const char* pszOut;
  bool bAudited;
};
void PrintTo(const StepCase& c, std::ostream* os) { *os << c.name; }

class KtlCliStepTest : public KtlCliTest, public ::testing::WithParamInterface<StepCase> {};

TEST_P(KtlCliStepTest, RunsEachStepOnlyAfterThePreviousSucceeded) {
  const StepCase& c = GetParam();
  if (*c.pszFailingStep) m_env.Set("KTL_PROBE_FAIL", c.pszFailingStep);
  const CliRun run = Run({"probe", "-mp", "/data", "-save"});
  EXPECT_EQ(run.nExitStatus, c.nExitStatus) << run.strErr;
  EXPECT_EQ(run.strOut, c.pszOut);
  const std::string strAudit = devhost_test::ReadFile(Path("state/audit.log"));
  EXPECT_EQ(strAudit.find(" probe -mp /data -save\n") != std::string::npos, c.bAudited) << strAudit;
}

const char kAllSteps[] =
    "CheckParam template=probe grouped=0 pairs=2\n"
    "CheckExec\n"
    "Exec probe -mp /data -save\n"
    "deleted\n";

INSTANTIATE_TEST_SUITE_P(
    Cases, KtlCliStepTest,
    ::testing::Values(StepCase{"every step succeeds", "", 0, kAllSteps, true},
                      StepCase{"CheckParam refuses", "CheckParam", 1,
                               "CheckParam template=probe grouped=0 pairs=2\ndeleted\n", false},
                      StepCase{"CheckExec refuses", "CheckExec", 1,
                               "CheckParam template=probe grouped=0 pairs=2\nCheckExec\ndeleted\n", false},
                      StepCase{"Exec fails", "Exec", 1, kAllSteps, true},
                      StepCase{"Exec throws", "throw", 4,
                               "CheckParam template=probe grouped=0 pairs=2\nCheckExec\n"
                               "Exec probe -mp /data -save\ndeleted\n",
                               false}),
    devhost_test::CaseName<StepCase>);

TEST_F(KtlCliTest, WordsThatCannotBeGroupedStopTheCommand) {
  const CliRun run = Run({"probe", "stray", "-save"});
  EXPECT_EQ(run.nExitStatus, 1);
  EXPECT_EQ(run.strOut, "CheckParam template=probe grouped=1 pairs=0\ndeleted\n");
}

TEST_F(KtlCliTest, TheLoggerPlugInShowsTheCatalogueTextOfARefusedCommandLine) {
  m_env.Set("KTL_PLUGIN_DIR", KTL_PLUGIN_DIR_FOR_TESTS);
  const CliRun run = Run({"logger", "-no-such-option"});
  EXPECT_EQ(run.nExitStatus, 1) << run.strErr;
  EXPECT_NE(run.strErr.find("Error: The command line is not valid."), std::string::npos) << run.strErr;
}

}  // namespace
