// The logging-tool service under concurrent ktl-cli processes. Every
// ktl-cli here runs in the test's terminal session, so all of them edit for
// the same session. Kills are in logger_kill_test.cpp.
#include <signal.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include "tests/devhost/cli_process.h"

namespace {

using devhost_test::ReadFile;
using devhost_test::SpawnCli;
using devhost_test::WaitExit;

using LoggerConcurrencyTest = LoggerCliTest;

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
          << "round " << nRound << ": " << edit.pszLine << " lost in\n"
          << strPending;
    RunOk({"-discard"}, "y\n");
  }
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
