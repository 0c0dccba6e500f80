// The logging-tool service under concurrent ktl-cli processes and under a
// process killed in the middle of a save. Every ktl-cli here is a child of
// the test process, so all of them edit for the same session.
//
// A save killed after writing its temporary file but before renaming it
// leaves "logger.ini.tmp.PID.XXXXXX" behind. Such a file is harmless: every
// temporary file gets a fresh unique name, nothing ever reads one, the next
// save replaces logger.ini by renaming its own, and the next command removes
// it (tests/cli/leftovers.t). The kill test checks that the next save works.
#include <signal.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "tests/devhost/cli_process.h"

namespace {

using devhost_test::CliRun;
using devhost_test::ReadFile;
using devhost_test::SpawnCli;
using devhost_test::WaitExit;

class LoggerConcurrencyTest : public LoggerCliTest {
 protected:
  // The configuration in effect after saving the pending edits, computed by
  // saving a copy of the state directory.
  std::string EffectiveAfterSave() {
    const std::string strCopy = Path("state-copy");
    std::filesystem::remove_all(strCopy);
    std::filesystem::copy(m_strStateDir, strCopy);
    SetEnv("KTL_STATE_DIR", strCopy);
    const CliRun run = Run({"-save", "-nochk"});
    EXPECT_EQ(run.nExitStatus, 0) << run.strErr;
    SetEnv("KTL_STATE_DIR", m_strStateDir);
    return ReadFile(strCopy + "/logger.ini");
  }
};

// One edit per process, each writing a line no other process writes. Adding
// a mount point reads the number of entries and then writes the next one in
// separate service calls; only the command lock keeps two additions from
// taking the same entry.
struct ParallelEdit {
  std::vector<std::string> words;
  const char* pszLine;  // in the pending file afterwards
};

const ParallelEdit kParallelEdits[] = {
    {{"-alert", "inf", "-setting", "off"}, "Information=0x10"},
    {{"-alert", "wrn", "-setting", "off"}, "Warning=0x10"},
    {{"-device", "cpu", "-setting", "on", "-interval", "31"}, "Interval=31"},
    {{"-device", "mem", "-setting", "on", "-count", "8"}, "Count=8"},
    {{"-device", "disk", "-setting", "on", "-interval", "33"}, "Interval=33"},
    {{"-mp", "/m1", "-setting", "on"}, "Mount=/m1"},
    {{"-mp", "/m2", "-setting", "on"}, "Mount=/m2"},
    {{"-mp", "/m3", "-setting", "on"}, "Mount=/m3"},
    {{"-mp", "/m4", "-setting", "on", "-threshold", "50"}, "Mount=/m4"},
};

TEST_F(LoggerConcurrencyTest, EditsStartedAtOnceAreAllKept) {
  RunOk({"-confirm", "cur"});  // creates the configuration in effect first
  for (int nRound = 0; nRound < 3; ++nRound) {
    std::vector<pid_t> vecChildren;
    for (const ParallelEdit& edit : kParallelEdits) vecChildren.push_back(SpawnCli(LoggerWords(edit.words)));
    for (std::size_t i = 0; i < vecChildren.size(); ++i)
      EXPECT_EQ(WaitExit(vecChildren[i]), 0) << kParallelEdits[i].words[1];

    const std::string strPending = ReadFile(StateFile("logger.edit.ini"));
    const std::vector<std::string> vecLines = devhost_test::Lines(strPending);
    for (const ParallelEdit& edit : kParallelEdits)
      EXPECT_NE(std::find(vecLines.begin(), vecLines.end(), edit.pszLine), vecLines.end())
          << "round " << nRound << ": " << edit.pszLine << " lost in\n" << strPending;
    RunOk({"-discard"}, "y\n");
  }
}

TEST_F(LoggerConcurrencyTest, ASaveKilledMidwayLeavesTheOldOrTheNewConfiguration) {
  const int kRounds = 30;
  std::mt19937 random(20261122);  // fixed seed: a failing round can be replayed
  std::uniform_int_distribution<int> delayMicroseconds(200, 6000);

  RunOk({"-confirm", "cur"});
  for (int nRound = 0; nRound < kRounds; ++nRound) {
    // Fresh pending edits, so that old and new differ in every round.
    RunOk({"-device", "cpu", "-setting", "on", "-interval", std::to_string(100 + nRound)});
    const std::string strOld = ReadFile(StateFile("logger.ini"));
    const std::string strNew = EffectiveAfterSave();
    ASSERT_NE(strOld, strNew);

    const int nDelay = delayMicroseconds(random);
    const pid_t pid = SpawnCli({"logger", "-save", "-nochk"});
    std::this_thread::sleep_for(std::chrono::microseconds(nDelay));
    kill(pid, SIGKILL);
    WaitExit(pid);

    const std::string strAfter = ReadFile(StateFile("logger.ini"));
    EXPECT_TRUE(strAfter == strOld || strAfter == strNew)
        << "round " << nRound << ", killed after " << nDelay << " us: torn configuration\n"
        << strAfter;
  }

  // Whatever the kills left behind, a save runs to its end.
  RunOk({"-device", "cpu", "-setting", "on", "-interval", "999"});
  const std::string strNew = EffectiveAfterSave();
  RunOk({"-save", "-nochk"});
  EXPECT_EQ(ReadFile(StateFile("logger.ini")), strNew);
  EXPECT_FALSE(std::filesystem::exists(StateFile("logger.edit.ini")));
}

// A command waiting for the operator's answer lets the command lock go:
// other commands of the session run meanwhile, and the question still counts.
TEST_F(LoggerConcurrencyTest, AnOpenQuestionHoldsUpNoOtherCommand) {
  RunOk({"-syslogoutput", "off"});
  // Standard input is a pipe, opened for reading and writing, so that
  // neither end waits for the other.
  ASSERT_EQ(mkfifo(Path("asking.in").c_str(), 0600), 0);
  const int nAnswer = open(Path("asking.in").c_str(), O_RDWR);
  ASSERT_GE(nAnswer, 0);
  const pid_t nAsking = SpawnCli(LoggerWords({"-discard"}), Path("asking"));
  for (int nWait = 0; nWait < 1000 && ReadFile(Path("asking.out")).find("[y/n]") == std::string::npos; ++nWait)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  ASSERT_NE(ReadFile(Path("asking.out")).find("[y/n]"), std::string::npos) << "the question was not asked";

  // Runs to its end within ten seconds, or is stopped and reported.
  const pid_t nEdit = SpawnCli(LoggerWords({"-syslogoutput", "on"}));
  int nStatus = -1;
  for (int nWait = 0; nWait < 1000 && waitpid(nEdit, &nStatus, WNOHANG) == 0; ++nWait)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  if (nStatus == -1 && kill(nEdit, SIGKILL) == 0) WaitExit(nEdit);
  EXPECT_TRUE(WIFEXITED(nStatus) && WEXITSTATUS(nStatus) == 0) << "an edit waited for another command's question";

  ASSERT_EQ(write(nAnswer, "y\n", 2), 2);
  close(nAnswer);
  EXPECT_EQ(WaitExit(nAsking), 0);
  EXPECT_FALSE(std::filesystem::exists(StateFile("logger.edit.ini"))) << "the discard was answered yes";
}

}  // namespace
