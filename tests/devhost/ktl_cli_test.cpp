// ktl-cli run as a separate process: its usage, the exit status of each way
// it can stop, and the order of the protocol steps. The probe plug-in prints
// each step it is asked to run.
#include "tests/devhost/cli_process.h"

namespace {

using devhost_test::CliRun;

class KtlCliTest : public devhost_test::DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    SetEnv("KTL_PLUGIN_DIR", KTL_TEST_PLUGIN_DIR);
    SetEnv("KTL_PROBE_FAIL", "");
  }
  CliRun Run(const std::vector<std::string>& vecWords) { return devhost_test::RunCli(vecWords, m_strDir); }
};

// Every way ktl-cli stops before a command runs. The state directory cannot
// be created, which matters only once a plug-in and its factory were found.
TEST_F(KtlCliTest, StopsBeforeTheCommandWithItsOwnExitStatus) {
  const struct {
    const char* name;
    std::vector<std::string> vecWords;
    int nExitStatus;
    bool bOnStdout;  // the text goes to standard output, not standard error
    std::vector<std::string> vecTexts;
  } cases[] = {
      {"help",
       {"--help"},
       0,
       true,
       {"Usage: ktl-cli [-v] COMMAND", "Exit status", "KTL_STATE_DIR", "KTL_PLUGIN_DIR", "KTL_TEMPLATE_DIR",
        "KTL_CATALOGUE", "KTL_DEFAULT_CONF", "KTL_ROOT", "KTL_MOUNT_CMD", "KTL_TRACE_FILE", "KTL_TRACE_MASK",
        "KTL_LOCK_TIMEOUT", "TMPDIR"}},
      {"version", {"--version"}, 0, true, {"ktl-cli (ktl-cli-host) ", "libktl_cli-logger (ktl-cli-logger) "}},
      {"no command", {}, 2, false, {"Usage: ktl-cli [-v] COMMAND"}},
      {"no command after -v", {"-v"}, 2, false, {"Usage: ktl-cli [-v] COMMAND"}},
      {"command name with a path", {"../probe"}, 2, false, {"../probe"}},
      {"no plug-in of that name", {"missing", "-x"}, 2, false, {"Unknown command \"missing\"", "Commands: "}},
      {"plug-in without its factory",
       {"nofactory", "-x"},
       3,
       false,
       {"GetCommandFactorynofactory", "libktl_cli-nofactory.so"}},
      {"state directory cannot be locked", {"probe", "-save"}, 1, false, {"plain-file/state"}},
  };
  devhost_test::WriteFile(Path("plain-file"), "");
  SetEnv("KTL_STATE_DIR", Path("plain-file/state"));
  for (const auto& c : cases) {
    const CliRun run = Run(c.vecWords);
    EXPECT_EQ(run.nExitStatus, c.nExitStatus) << c.name << ": " << run.strErr;
    EXPECT_EQ(c.bOnStdout ? run.strErr : run.strOut, "") << c.name;
    for (const std::string& strText : c.vecTexts)
      EXPECT_NE((c.bOnStdout ? run.strOut : run.strErr).find(strText), std::string::npos) << c.name << ": " << strText;
  }
}

// Each step runs only after the previous one returned 0, and the command is
// deleted whatever happened; the base's Exec writes the audit line.
TEST_F(KtlCliTest, RunsEachStepOnlyAfterThePreviousSucceeded) {
  const std::string strAllSteps =
      "CheckParam template=probe grouped=0 pairs=2\nCheckExec\nExec probe -mp /data -save\ndeleted\n";
  const struct {
    const char* pszFailingStep;  // "" for none
    int nExitStatus;
    std::string strOut;
    bool bAudited;
  } cases[] = {
      {"", 0, strAllSteps, true},
      {"CheckParam", 1, "CheckParam template=probe grouped=0 pairs=2\ndeleted\n", false},
      {"CheckExec", 1, "CheckParam template=probe grouped=0 pairs=2\nCheckExec\ndeleted\n", false},
      {"Exec", 1, strAllSteps, true},
      {"throw", 4, strAllSteps, false},
  };
  for (const auto& c : cases) {
    std::filesystem::remove_all(m_strStateDir);
    SetEnv("KTL_PROBE_FAIL", c.pszFailingStep);
    const CliRun run = Run({"probe", "-mp", "/data", "-save"});
    EXPECT_EQ(run.nExitStatus, c.nExitStatus) << c.pszFailingStep << ": " << run.strErr;
    EXPECT_EQ(run.strOut, c.strOut) << c.pszFailingStep;
    const std::string strAudit = devhost_test::ReadFile(StateFile("audit.log"));
    EXPECT_EQ(strAudit.find(" probe -mp /data -save\n") != std::string::npos, c.bAudited) << c.pszFailingStep;
  }
}

}  // namespace
