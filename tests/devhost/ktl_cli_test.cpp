// ktl-cli run as a separate process: its usage, its errors when a plug-in
// or a factory is missing, the order of the protocol steps and its exit
// statuses. The probe plug-in prints each step it is asked to run.
#include "tests/devhost/cli_process.h"

namespace {

using devhost_test::CliRun;
using devhost_test::DevhostTest;

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
  CliRun Run(const std::vector<std::string>& vecWords) { return devhost_test::RunCli(vecWords, m_strDir); }
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

TEST_F(KtlCliTest, AStateDirectoryThatCannotBeLockedStopsTheCommandBeforeItStarts) {
  devhost_test::WriteFile(Path("plain-file"), "");
  m_env.Set("KTL_STATE_DIR", Path("plain-file/state"));
  const CliRun run = Run({"probe", "-save"});
  EXPECT_EQ(run.nExitStatus, 1);
  EXPECT_EQ(run.strOut, "") << "the command object was created";
  EXPECT_NE(run.strErr.find(Path("plain-file")), std::string::npos) << run.strErr;
}

TEST_F(KtlCliTest, TheLoggerPlugInShowsTheCatalogueTextOfARefusedCommandLine) {
  m_env.Set("KTL_PLUGIN_DIR", KTL_PLUGIN_DIR_FOR_TESTS);
  const CliRun run = Run({"logger", "-no-such-option"});
  EXPECT_EQ(run.nExitStatus, 1) << run.strErr;
  EXPECT_NE(run.strErr.find("Error: The command line is not valid."), std::string::npos) << run.strErr;
}

}  // namespace
