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
  int nHostExec;                   // CCommand::Exec
  int nInitWrite;                  // the answer in Exec (the constructor's is 0)
  int nProbeResult;
  int nExpected;
  std::vector<std::string> calls;  // host calls after construction, traces left out
};
KTL_PRINT_CASE_BY_NAME(ExecCase)

class ExecPathTest : public PluginTest, public ::testing::WithParamInterface<ExecCase> {};

TEST_P(ExecPathTest, RunsTheHostStepTheProcessCheckAndTheOperation) {
  const ExecCase& c = GetParam();
  scripted::script().dqInitWrite = {0, c.nInitWrite};
  scripted::script().mapShowResult = {{"MSG_CLI_CHECK_PRCID", 11}, {"MSG_CLI_NOTFOUND_MONITOR_TOOL", 12}};
  ProbeCmd cmd;
  cmd.m_bSkipProcessCheck = c.bSkipProcessCheck;
  cmd.nProbeResult = c.nProbeResult;
  SelectProbe();
  scripted::script().nExecResult = c.nHostExec;
  scripted::calls().clear();

  EXPECT_EQ(cmd.Exec("logger -x"), c.nExpected) << c.name;
  EXPECT_EQ(scripted::callNames(), c.calls) << c.name;
  EXPECT_EQ(scripted::traces(), (std::vector<std::string>{kEnterExec, kLeaveExec})) << c.name;
  EXPECT_EQ(scripted::callsOf("CCommand::Exec")[0].vecArgs[0], "logger -x");
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ExecPathTest,
    ::testing::Values(
        ExecCase{"success", false, 0, 0, 0, 0, {"CCommand::Exec", "GetPPID", "initWrite", "Probe"}},
        ExecCase{"operation result passed on", false, 0, 0, 7, 7, {"CCommand::Exec", "GetPPID", "initWrite", "Probe"}},
        ExecCase{"host step fails with 5", false, 5, 0, 0, 1, {"CCommand::Exec"}},
        ExecCase{"host step fails with -3", false, -3, 0, 0, 1, {"CCommand::Exec"}},
        ExecCase{"host step fails, skip set", true, 2, 0, 0, 1, {"CCommand::Exec"}},
        ExecCase{"another session", false, 0, -1, 0, 11, {"CCommand::Exec", "GetPPID", "initWrite", "show"}},
        ExecCase{"tool not found", false, 0, 3, 0, 12, {"CCommand::Exec", "GetPPID", "initWrite", "show"}},
        ExecCase{"skip ignores a refusing service", true, 0, -1, 4, 4, {"CCommand::Exec", "Probe"}}),
    CaseName<ExecCase>);

class ExecTest : public PluginTest {};

TEST_F(ExecTest, ProcessCheckFailuresShowTheirMessageWithCodeZero) {
  for (int nAnswer : {-1, 3, 176}) {
    scripted::reset();
    scripted::script().dqInitWrite = {0, nAnswer};
    ProbeCmd cmd;
    SelectProbe();
    cmd.Exec("");
    const std::string strExpected = nAnswer == -1 ? "MSG_CLI_CHECK_PRCID|0|" : "MSG_CLI_NOTFOUND_MONITOR_TOOL|0|";
    EXPECT_EQ(scripted::shows(), std::vector<std::string>{strExpected}) << nAnswer;
  }
}

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
  EXPECT_EQ(scripted::callsOf("Probe").size(), 1u);
}

TEST_F(ExecTest, NoOperationSelectedIsRefusedWithoutAnyServiceCall) {
  CLoggerConfigCmd cmd;
  scripted::calls().clear();
  scripted::script().mapShowResult["MSG_CLI_ERROR_COMMAND"] = 9;
  EXPECT_EQ(cmd.Exec(""), 9);
  EXPECT_EQ(scripted::callNames(), (std::vector<std::string>{"CCommand::Exec", "show"}));
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
  int nPendingOutput;
  int nEffectiveOutput;
  int nExpected;
  std::vector<std::string> calls;
  std::vector<std::string> traces;
};
KTL_PRINT_CASE_BY_NAME(CheckExecCase)

class CheckExecTest : public PluginTest, public ::testing::WithParamInterface<CheckExecCase> {};

const char kEnterCheckExec[] = "4|[ENTER] virtual int CLoggerConfigCmd::CheckExec()";
const char kOn[] = "1|bool CLoggerConfigCmd::isSyslogoutputOn() SyslogOutput is ON";
const char kOff[] = "1|bool CLoggerConfigCmd::isSyslogoutputOn() SyslogOutput is OFF";

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

  EXPECT_EQ(cmd.CheckExec(), c.nExpected) << c.name;
  EXPECT_EQ(scripted::callNames(), c.calls) << c.name;
  EXPECT_EQ(scripted::traces(), c.traces) << c.name;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CheckExecTest,
    ::testing::Values(
        CheckExecCase{"not a setting command", 0, true, 0x10, 0x10, 0, {}, {kEnterCheckExec, "4|[LEAVE] virtual int CLoggerConfigCmd::CheckExec(), rc=0"}},
        CheckExecCase{"pending on", 1, true, 0x11, 0x10, 0, {"ReadConfFile"}, {kEnterCheckExec, kOn, "4|[LEAVE] virtual int CLoggerConfigCmd::CheckExec(), rc=0"}},
        CheckExecCase{"pending lacks the switch, effective on", 1, true, 0, 0x11, 21, {"ReadConfFile", "show"}, {kEnterCheckExec, kOff, "4|[LEAVE] virtual int CLoggerConfigCmd::CheckExec(), rc=21"}},
        CheckExecCase{"no pending, effective on", 1, false, 0, 0x11, 0, {"ReadConfFile", "GetParameter"}, {kEnterCheckExec, kOn, "4|[LEAVE] virtual int CLoggerConfigCmd::CheckExec(), rc=0"}},
        CheckExecCase{"no pending, effective off", 1, false, 0, 0x10, 21, {"ReadConfFile", "GetParameter", "show"}, {kEnterCheckExec, kOff, "4|[LEAVE] virtual int CLoggerConfigCmd::CheckExec(), rc=21"}},
        CheckExecCase{"low four bits decide", 1, true, 0x01, 0, 0, {"ReadConfFile"}, {kEnterCheckExec, kOn, "4|[LEAVE] virtual int CLoggerConfigCmd::CheckExec(), rc=0"}}),
    CaseName<CheckExecCase>);

}  // namespace
