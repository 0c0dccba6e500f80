// The execution frame: Exec, CheckExec and isSyslogoutputOn.
#include <gtest/gtest.h>

#include "tests/plugin/plugin_test_support.h"

namespace {

const char kEnterExec[] = "4|[ENTER] virtual int CLoggerConfigCmd::Exec(std::string)";
const char kLeaveExec[] = "4|[LEAVE] virtual int CLoggerConfigCmd::Exec(std::string)";

// A command whose selected operation is a probe that records its call.
class ProbeCmd : public CLoggerConfigCmd {
 public:
  int Probe() {
    scripted::calls().push_back({"Probe", {}});
    return nProbeResult;
  }
  int nProbeResult = 0;
};

void SelectProbe() { pExecMethod = static_cast<LoggerExecMethod>(&ProbeCmd::Probe); }

struct ExecCase {
  const char* name;
  bool bSkipProcessCheck;
  int nHostExec;   // CCommand::Exec
  int nInitWrite;  // the answer in Exec (the constructor's is 0)
  int nExpected;   // the probe answers 7
  std::string calls;
  Lines shows;
};
KTL_CASE_FIXTURE(ExecPathTest, ExecCase);

TEST_P(ExecPathTest, RunsTheHostStepTheProcessCheckAndTheOperation) {
  const ExecCase& c = GetParam();
  scripted::script().dqInitWrite = {0, c.nInitWrite};
  scripted::script().mapShowResult = {{"MSG_CLI_CHECK_PRCID", 11}, {"MSG_CLI_NOTFOUND_MONITOR_TOOL", 12}};
  ProbeCmd cmd;
  cmd.m_bSkipProcessCheck = c.bSkipProcessCheck;
  cmd.nProbeResult = 7;
  SelectProbe();
  scripted::script().nExecResult = c.nHostExec;
  scripted::calls().clear();

  EXPECT_EQ(cmd.Exec("logger -x"), c.nExpected);
  EXPECT_EQ(scripted::callNames(), Words(c.calls));
  EXPECT_EQ(scripted::shows(), c.shows);
  EXPECT_EQ(scripted::traces(), (Lines{kEnterExec, kLeaveExec}));
  EXPECT_EQ(scripted::callsOf("CCommand::Exec")[0].vecArgs[0], "logger -x");
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ExecPathTest,
    ::testing::Values(ExecCase{"operation result passed on", false, 0, 0, 7, "CCommand::Exec GetPPID initWrite Probe", {}},
                      ExecCase{"host step fails", false, -3, 0, 1, "CCommand::Exec", {}},
                      ExecCase{"host step fails, skip set", true, 2, 0, 1, "CCommand::Exec", {}},
                      ExecCase{"another session", false, 0, -1, 11, "CCommand::Exec GetPPID initWrite show", {"MSG_CLI_CHECK_PRCID|0|"}},
                      ExecCase{"tool not found, even for 176", false, 0, 176, 12, "CCommand::Exec GetPPID initWrite show",
                               {"MSG_CLI_NOTFOUND_MONITOR_TOOL|0|"}},
                      ExecCase{"skip ignores a refusing service", true, 0, -1, 7, "CCommand::Exec Probe", {}}),
    CaseName<ExecCase>);

class ExecTest : public PluginTest {};

TEST_F(ExecTest, InitWriteRunsInTheConstructorAndAgainInExecWithTheSessionId) {
  scripted::script().nPpid = 777;
  scripted::script().dqInitWrite = {-1, 0};  // the constructor's answer is ignored
  ProbeCmd cmd;
  SelectProbe();
  EXPECT_EQ(cmd.Exec(""), 0);
  const auto vecInit = scripted::callsOf("initWrite");
  ASSERT_EQ(vecInit.size(), 2u);
  EXPECT_EQ(vecInit[0].vecArgs[0], "777");
  EXPECT_EQ(vecInit[1].vecArgs[0], "777");
}

TEST_F(ExecTest, NoOperationSelectedIsRefusedWithoutAnyServiceCall) {
  CLoggerConfigCmd cmd;
  scripted::calls().clear();
  scripted::script().mapShowResult["MSG_CLI_ERROR_COMMAND"] = 9;
  EXPECT_EQ(cmd.Exec(""), 9);
  EXPECT_EQ(scripted::callNames(), (Lines{"CCommand::Exec", "show"}));
}

TEST_F(ExecTest, ExceptionsOfTheHostPassThrough) {
  scripted::script().strThrowIn = "CCommand::Exec";
  ProbeCmd cmd;
  SelectProbe();
  EXPECT_THROW(cmd.Exec(""), std::runtime_error);
}

// CheckExec and isSyslogoutputOn.
struct CheckExecCase {
  const char* name;
  int nSettingCmd;
  bool bPendingReadable;
  int nPendingOutput, nEffectiveOutput, nExpected;
  std::string calls;
  const char* note;  // isSyslogoutputOn's line, nullptr for none
};
KTL_CASE_FIXTURE(CheckExecTest, CheckExecCase);

TEST_P(CheckExecTest, SettingCommandsNeedSyslogOutputOn) {
  const CheckExecCase& c = GetParam();
  CLoggerConfigCmd cmd;
  cmd.m_nSettingCmd = c.nSettingCmd;
  scripted::script().bReadConfFileResult = c.bPendingReadable;
  scripted::script().pending.syslogOutput.nOutput = c.nPendingOutput;
  scripted::script().effective.syslogOutput.nOutput = c.nEffectiveOutput;
  scripted::script().nGetParameterResult = 176;  // ignored by the check
  scripted::script().mapShowResult["MSG_CLI_NONE_COMMAND"] = 21;
  scripted::calls().clear();

  EXPECT_EQ(cmd.CheckExec(), c.nExpected);
  EXPECT_EQ(scripted::callNames(), Words(c.calls));
  Lines vecTraces{"4|[ENTER] virtual int CLoggerConfigCmd::CheckExec()"};
  if (c.note) vecTraces.push_back(std::string("1|bool CLoggerConfigCmd::isSyslogoutputOn() SyslogOutput is ") + c.note);
  vecTraces.push_back("4|[LEAVE] virtual int CLoggerConfigCmd::CheckExec(), rc=" + std::to_string(c.nExpected));
  EXPECT_EQ(scripted::traces(), vecTraces);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CheckExecTest,
    ::testing::Values(CheckExecCase{"not a setting command", 0, true, 0x10, 0x10, 0, "", nullptr},
                      CheckExecCase{"pending on", 1, true, 0x11, 0x10, 0, "ReadConfFile", "ON"},
                      CheckExecCase{"pending lacks the switch, effective on", 1, true, 0, 0x11, 21, "ReadConfFile show", "OFF"},
                      CheckExecCase{"no pending, effective on", 1, false, 0, 0x11, 0, "ReadConfFile GetParameter", "ON"},
                      CheckExecCase{"no pending, effective off", 1, false, 0, 0x10, 21, "ReadConfFile GetParameter show", "OFF"},
                      CheckExecCase{"low four bits decide", 1, true, 0x01, 0, 0, "ReadConfFile", "ON"}),
    CaseName<CheckExecCase>);

}  // namespace
