// Every form of the "logger" command killed at each of its file changes in
// turn (KTL_FAULT_KILL_AT=1, 2, ... until it runs to its end). Each file of
// the state directory must then be as it was before the command or as the
// command leaves it, and the next command must work.
#include <signal.h>

#include "tests/devhost/cli_process.h"

namespace {

using Words = std::vector<std::string>;

struct KillCase {
  const char* pszName;
  std::vector<Words> setup;  // run to their end first
  Words words;               // the command killed
  const char* pszAnswer;     // its standard input
};

const KillCase kCases[] = {
    {"first edit, which creates the configuration in effect", {}, {"-syslogoutput", "off"}, ""},
    {"alert", {{"-confirm", "cur"}}, {"-alert", "wrn", "-setting", "off"}, ""},
    {"device with values",
     {{"-alert", "err", "-setting", "off"}},
     {"-device", "cpu", "-setting", "on", "-interval", "30", "-count", "5", "-threshold", "70"},
     ""},
    {"new mount point", {{"-mp", "/data", "-setting", "on"}}, {"-mp", "/m1", "-setting", "on", "-threshold", "55"}, ""},
    {"existing mount point",
     {{"-mp", "/data", "-setting", "on"}},
     {"-mp", "/data", "-setting", "on", "-threshold", "60"},
     ""},
    {"save", {{"-device", "disk", "-setting", "on"}, {"-mp", "/data", "-setting", "on"}}, {"-save", "-nochk"}, ""},
    {"save after its question", {{"-device", "cpu", "-setting", "off"}}, {"-save"}, "y\n"},
    {"discard", {{"-syslogoutput", "off"}}, {"-discard", "-nochk"}, ""},
    {"confirm", {{"-syslogoutput", "off"}}, {"-confirm", "edit"}, ""},
};

// Far more than any command makes; a command that never ends is a fault.
const int kMostChanges = 40;

class LoggerKillTest : public LoggerCliTest {
 protected:
  // The configuration files of a state directory, "<none>" for a missing
  // one. The time an owner took the edits over differs from run to run.
  static std::vector<std::string> Files(const std::string& strDir) {
    static const std::regex kSince("\nSince=[^\n]*");
    std::vector<std::string> vecFiles;
    for (const char* pszName : {"logger.ini", "logger.edit.ini"}) {
      const std::string strPath = strDir + "/" + pszName;
      vecFiles.push_back(std::filesystem::exists(strPath)
                             ? std::regex_replace(devhost_test::ReadFile(strPath), kSince, "\nSince=T")
                             : "<none>");
    }
    return vecFiles;
  }

  // Runs the case's command on a fresh copy of the base state directory,
  // killed before its nKillAt-th file change (0: not killed). The wait
  // status.
  int RunOnCopy(const KillCase& c, int nKillAt) {
    std::filesystem::remove_all(m_strCopy);
    std::filesystem::copy(m_strBase, m_strCopy);
    devhost_test::WriteFile(Path("killed.in"), c.pszAnswer);
    setenv("KTL_FAULT_KILL_AT", std::to_string(nKillAt).c_str(), 1);
    const pid_t pid = devhost_test::SpawnCli(LoggerWords(c.words), Path("killed"));
    setenv("KTL_FAULT_KILL_AT", "0", 1);
    int nStatus = 0;
    EXPECT_EQ(waitpid(pid, &nStatus, 0), pid);
    return nStatus;
  }

  void SetUp() override {
    LoggerCliTest::SetUp();
    m_strBase = Path("base");
    m_strCopy = Path("copy");
  }

  std::string m_strBase, m_strCopy;
};

TEST_F(LoggerKillTest, AKilledCommandLeavesEachFileAsBeforeOrAsAfter) {
  SetEnv("KTL_FAULT_KILL_AT", "0");
  for (const KillCase& c : kCases) {
    std::filesystem::remove_all(m_strBase);
    std::filesystem::create_directory(m_strBase);
    SetEnv("KTL_STATE_DIR", m_strBase);
    for (const Words& words : c.setup) RunOk(words);
    const std::vector<std::string> vecBefore = Files(m_strBase);

    SetEnv("KTL_STATE_DIR", m_strCopy);
    ASSERT_EQ(RunOnCopy(c, 0), 0) << c.pszName << ": " << devhost_test::ReadFile(Path("killed.err"));
    const std::vector<std::string> vecAfter = Files(m_strCopy);

    int nKillAt = 1;
    for (; nKillAt < kMostChanges; ++nKillAt) {
      const int nStatus = RunOnCopy(c, nKillAt);
      if (WIFEXITED(nStatus)) break;
      ASSERT_TRUE(WIFSIGNALED(nStatus) && WTERMSIG(nStatus) == SIGKILL) << c.pszName << ", " << nKillAt;
      const std::vector<std::string> vecKilled = Files(m_strCopy);
      for (std::size_t i = 0; i < vecKilled.size(); ++i) {
        EXPECT_TRUE(vecKilled[i] == vecBefore[i] || vecKilled[i] == vecAfter[i])
            << c.pszName << ", killed at change " << nKillAt << ": torn file\n"
            << vecKilled[i];
      }
      const devhost_test::CliRun next = Run({"-confirm", "edit"});
      EXPECT_EQ(next.nExitStatus, 0) << c.pszName << ", killed at change " << nKillAt << ": " << next.strErr;
    }
    EXPECT_GT(nKillAt, 1) << c.pszName << ": no file change to kill at";
    EXPECT_LT(nKillAt, kMostChanges) << c.pszName << ": still changing files";
    EXPECT_EQ(Files(m_strCopy), vecAfter) << c.pszName << ": not killed, a different result";
  }
}

}  // namespace
