// The command object's life and the execution frame: construction and
// destruction, Exec, CheckExec and isSyslogoutputOn.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "tests/plugin/plugin_test_support.h"

extern "C" CCommand* GetCommandFactorylogger();

namespace {

const char kEnterExec[] = "4|[ENTER] virtual int CLoggerConfigCmd::Exec(std::string)";
const char kLeaveExec[] = "4|[LEAVE] virtual int CLoggerConfigCmd::Exec(std::string)";

TEST_F(PluginTest, ConstructionBuildsTheServicesAndClaimsTheSessionDestructionReleasesThem) {
  scripted::script().nPpid = 31;
  CCommand* pCmd = GetCommandFactorylogger();
  EXPECT_EQ(scripted::callNames(),
            (Lines{"CMessage::CMessage", "CToolServiceLoggerAcc::CToolServiceLoggerAcc", "GetPPID", "initWrite"}));
  EXPECT_EQ(scripted::callsOf("initWrite")[0].vecArgs[0], "31");
  EXPECT_TRUE(scripted::traces().empty());
  scripted::calls().clear();
  delete pCmd;
  EXPECT_EQ(scripted::callNames(), (Lines{"CToolServiceLoggerAcc::~CToolServiceLoggerAcc", "CMessage::~CMessage"}));
}

// A host constructor or initWrite that throws: the exception reaches the
// caller and nothing leaks (the sanitizer build checks the "nothing").
TEST_F(PluginTest, AThrowingHostCallDuringConstructionReleasesWhatWasBuilt) {
  for (const std::string strCall : {"CMessage::CMessage", "CToolServiceLoggerAcc::CToolServiceLoggerAcc", "initWrite"}) {
    scripted::reset();
    scripted::script().strThrowIn = strCall;
    EXPECT_THROW(GetCommandFactorylogger(), std::runtime_error) << strCall;
    const auto vecNames = scripted::callNames();
    EXPECT_EQ(std::count(vecNames.begin(), vecNames.end(), "CMessage::~CMessage"), strCall != "CMessage::CMessage") << strCall;
    EXPECT_EQ(std::count(vecNames.begin(), vecNames.end(), "CToolServiceLoggerAcc::~CToolServiceLoggerAcc"), strCall == "initWrite")
        << strCall;
  }
}

// A command whose selected operation is a probe that records its call.
class ProbeCmd : public CLoggerConfigCmd {
 public:
  int Probe() {
    scripted::calls().push_back({"Probe", {}});
    return 7;
  }
};

struct ExecCase {
  const char* name;
  bool bSelected, bSkipProcessCheck;  // an operation selected; m_bSkipProcessCheck
  int nHostExec;   // CCommand::Exec
  int nInitWrite;  // the answer in Exec; the constructor's, -1, is ignored
  int nExpected;   // the probe answers 7
  std::string calls;
  Lines shows;
};
KTL_CASE_FIXTURE(ExecPathTest, ExecCase);

TEST_P(ExecPathTest, RunsTheHostStepTheProcessCheckAndTheOperation) {
  const ExecCase& c = GetParam();
  scripted::script().nPpid = 777;
  scripted::script().dqInitWrite = {-1, c.nInitWrite};
  scripted::script().mapShowResult = {{"MSG_CLI_CHECK_PRCID", 11}, {"MSG_CLI_NOTFOUND_MONITOR_TOOL", 12}, {"MSG_CLI_ERROR_COMMAND", 9}};
  ProbeCmd cmd;
  cmd.m_bSkipProcessCheck = c.bSkipProcessCheck;
  if (c.bSelected) pExecMethod = static_cast<LoggerExecMethod>(&ProbeCmd::Probe);
  scripted::script().nExecResult = c.nHostExec;
  scripted::calls().clear();

  EXPECT_EQ(cmd.Exec("logger -x"), c.nExpected);
  EXPECT_EQ(scripted::callNames(), Words(c.calls));
  EXPECT_EQ(scripted::shows(), c.shows);
  EXPECT_EQ(scripted::traces(), (Lines{kEnterExec, kLeaveExec}));
  EXPECT_EQ(scripted::callsOf("CCommand::Exec")[0].vecArgs[0], "logger -x");
  for (const auto& call : scripted::callsOf("initWrite")) EXPECT_EQ(call.vecArgs[0], "777");
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ExecPathTest,
    ::testing::Values(ExecCase{"operation result passed on", true, false, 0, 0, 7, "CCommand::Exec GetPPID initWrite Probe", {}},
                      ExecCase{"host step fails", true, false, -3, 0, 1, "CCommand::Exec", {}},
                      ExecCase{"host step fails, skip set", true, true, 2, 0, 1, "CCommand::Exec", {}},
                      ExecCase{"another session", true, false, 0, -1, 11, "CCommand::Exec GetPPID initWrite show", {"MSG_CLI_CHECK_PRCID|0|"}},
                      ExecCase{"tool not found, even for 176", true, false, 0, 176, 12, "CCommand::Exec GetPPID initWrite show",
                               {"MSG_CLI_NOTFOUND_MONITOR_TOOL|0|"}},
                      ExecCase{"skip ignores a refusing service", true, true, 0, -1, 7, "CCommand::Exec Probe", {}},
                      ExecCase{"no operation selected, no service call", false, false, 0, 0, 9, "CCommand::Exec show", {"MSG_CLI_ERROR_COMMAND|0|"}}),
    CaseName<ExecCase>);

TEST_F(PluginTest, ExecPassesExceptionsOfTheHostThrough) {
  scripted::script().strThrowIn = "CCommand::Exec";
  ProbeCmd cmd;
  pExecMethod = static_cast<LoggerExecMethod>(&ProbeCmd::Probe);
  EXPECT_THROW(cmd.Exec(""), std::runtime_error);
}

// CheckExec: a setting command needs syslog output on, in the pending
// configuration when it can be read, else in the one in effect.
TEST_F(PluginTest, CheckExecNeedsSyslogOutputOnForSettingCommands) {
  const struct {
    const char* name;
    int nSettingCmd;
    bool bPendingReadable;
    int nPendingOutput, nEffectiveOutput, nExpected;
    const char *calls, *note;  // note: isSyslogoutputOn's line, nullptr for none
  } kCases[] = {{"not a setting command", 0, true, 0x10, 0x10, 0, "", nullptr},
                {"pending on", 1, true, 0x11, 0x10, 0, "ReadConfFile", "ON"},
                {"pending lacks the switch, effective on", 1, true, 0, 0x11, 21, "ReadConfFile show", "OFF"},
                {"no pending, effective on", 1, false, 0, 0x11, 0, "ReadConfFile GetParameter", "ON"},
                {"no pending, effective off", 1, false, 0, 0x10, 21, "ReadConfFile GetParameter show", "OFF"},
                {"low four bits decide", 1, true, 0x01, 0, 0, "ReadConfFile", "ON"}};
  for (const auto& c : kCases) {
    scripted::reset();
    CLoggerConfigCmd cmd;
    cmd.m_nSettingCmd = c.nSettingCmd;
    scripted::script().bReadConfFileResult = c.bPendingReadable;
    scripted::script().pending.syslogOutput.nOutput = c.nPendingOutput;
    scripted::script().effective.syslogOutput.nOutput = c.nEffectiveOutput;
    scripted::script().nGetParameterResult = 176;  // ignored by the check
    scripted::script().mapShowResult["MSG_CLI_NONE_COMMAND"] = 21;
    scripted::calls().clear();

    EXPECT_EQ(cmd.CheckExec(), c.nExpected) << c.name;
    EXPECT_EQ(scripted::callNames(), Words(c.calls)) << c.name;
    Lines vecTraces{"4|[ENTER] virtual int CLoggerConfigCmd::CheckExec()"};
    if (c.note) vecTraces.push_back(std::string("1|bool CLoggerConfigCmd::isSyslogoutputOn() SyslogOutput is ") + c.note);
    vecTraces.push_back("4|[LEAVE] virtual int CLoggerConfigCmd::CheckExec(), rc=" + std::to_string(c.nExpected));
    EXPECT_EQ(scripted::traces(), vecTraces) << c.name;
  }
}

}  // namespace
