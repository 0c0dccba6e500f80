// The command object's life and the execution frame: construction and
// destruction, Exec, CheckExec and isSyslogoutputOn.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/plugin/plugin_test_support.h"

extern "C" CCommand* GetCommandFactorylogger();

namespace {

// The object claims the edit session for the parent process and releases
// both services; a host call that throws during construction reaches the
// caller, and what was built is released (the sanitizer build checks that
// nothing leaks).
TEST_F(PluginTest, ConstructionClaimsTheSessionAndReleasesWhatWasBuilt) {
  for (const std::string strThrowIn : {"", "CMessage::CMessage", "CToolServiceLoggerAcc::CToolServiceLoggerAcc", "initWrite"}) {
    scripted::reset();
    scripted::script().nPpid = 31;
    scripted::script().strThrowIn = strThrowIn;
    if (strThrowIn.empty()) {
      delete GetCommandFactorylogger();
    } else {
      EXPECT_THROW(GetCommandFactorylogger(), std::runtime_error) << strThrowIn;
    }
    const bool bAccessorBuilt = strThrowIn.empty() || strThrowIn == "initWrite";
    const Lines vecNames = scripted::callNames();
    EXPECT_EQ(std::count(vecNames.begin(), vecNames.end(), "CMessage::~CMessage"), strThrowIn != "CMessage::CMessage") << strThrowIn;
    EXPECT_EQ(std::count(vecNames.begin(), vecNames.end(), "CToolServiceLoggerAcc::~CToolServiceLoggerAcc"), bAccessorBuilt) << strThrowIn;
    for (const auto& call : scripted::callsOf("initWrite")) EXPECT_EQ(call.vecArgs, Lines{"31"});
  }
}

// The operation selected is CmdSyslog, whose write fails here: it shows the
// application error and answers 7.
struct ExecCase {
  const char* name;
  bool bSelected, bSkipProcessCheck;  // an operation selected; m_bSkipProcessCheck
  int nHostExec;   // CCommand::Exec
  int nInitWrite;  // the answer in Exec; the constructor's, -1, is ignored
  int nExpected;
  std::string calls;
  std::string shown;  // the one message shown, "" for none
};
KTL_CASE_FIXTURE(ExecPathTest, ExecCase);

TEST_P(ExecPathTest, RunsTheHostStepTheProcessCheckAndTheOperation) {
  const ExecCase& c = GetParam();
  scripted::script().nPpid = 777;
  scripted::script().dqInitWrite = {-1, c.nInitWrite};
  scripted::script().setFailWrite = {"Syslog/Output"};
  scripted::script().mapShowResult = {{"MSG_CLI_CHECK_PRCID", 11}, {"MSG_CLI_NOTFOUND_MONITOR_TOOL", 12}, {"MSG_CLI_ERROR_COMMAND", 9},
                                      {"MSG_CLI_ERROR_APPLICATION", 7}};
  CLoggerConfigCmd cmd;
  cmd.m_bSkipProcessCheck = c.bSkipProcessCheck;
  if (c.bSelected) pExecMethod = &CLoggerConfigCmd::CmdSyslog;
  scripted::script().nExecResult = c.nHostExec;
  scripted::calls().clear();

  EXPECT_EQ(cmd.Exec("logger -x"), c.nExpected);
  EXPECT_EQ(scripted::callNames(), Words(c.calls));
  EXPECT_EQ(scripted::shows(), c.shown.empty() ? Lines{} : Lines{c.shown});
  EXPECT_EQ(scripted::traces(), (Lines{"4|[ENTER] virtual int CLoggerConfigCmd::Exec(std::string)",
                                       "4|[LEAVE] virtual int CLoggerConfigCmd::Exec(std::string)"}));
  for (const auto& call : scripted::callsOf("initWrite")) EXPECT_EQ(call.vecArgs[0], "777");
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ExecPathTest,
    ::testing::Values(
        ExecCase{"operation result passed on", true, false, 0, 0, 7, "CCommand::Exec GetPPID initWrite WriteString show", kAppError},
        ExecCase{"host step fails", true, true, -3, 0, 1, "CCommand::Exec", ""},
        ExecCase{"another session", true, false, 0, -1, 11, "CCommand::Exec GetPPID initWrite show", "MSG_CLI_CHECK_PRCID|0|"},
        ExecCase{"tool not found, even for 176", true, false, 0, 176, 12, "CCommand::Exec GetPPID initWrite show",
                 "MSG_CLI_NOTFOUND_MONITOR_TOOL|0|"},
        ExecCase{"skip ignores a refusing service", true, true, 0, -1, 7, "CCommand::Exec WriteString show", kAppError},
        ExecCase{"no operation selected", false, false, 0, 0, 9, "CCommand::Exec show", "MSG_CLI_ERROR_COMMAND|0|"}),
    CaseName<ExecCase>);

// Only CheckParam catches exceptions.
TEST_F(PluginTest, ExecPassesExceptionsOfTheHostThrough) {
  scripted::script().strThrowIn = "CCommand::Exec";
  CLoggerConfigCmd cmd;
  EXPECT_THROW(cmd.Exec(""), std::runtime_error);
}

// CheckExec: a setting command needs syslog output on, in the pending
// configuration when it can be read, else in the one in effect.
TEST_F(PluginTest, CheckExecNeedsSyslogOutputOnForSettingCommands) {
  const struct {
    int nSettingCmd;
    bool bPendingReadable;
    int nPendingOutput, nEffectiveOutput, nExpected;
    const char *calls, *note;  // note: isSyslogoutputOn's line, nullptr for none
  } kCases[] = {{0, true, 0x10, 0x10, 0, "", nullptr},
                {1, true, 0x11, 0x10, 0, "ReadConfFile", "ON"},
                {1, true, 0, 0x11, 21, "ReadConfFile show", "OFF"},
                {1, false, 0, 0x11, 0, "ReadConfFile GetParameter", "ON"}};
  for (const auto& c : kCases) {
    scripted::reset();
    CLoggerConfigCmd cmd;
    cmd.m_nSettingCmd = c.nSettingCmd;
    scripted::script().bReadConfFileResult = c.bPendingReadable;
    scripted::script().pending.syslogOutput.nOutput = c.nPendingOutput;
    scripted::script().effective.syslogOutput.nOutput = c.nEffectiveOutput;
    scripted::script().mapShowResult["MSG_CLI_NONE_COMMAND"] = 21;
    scripted::calls().clear();

    EXPECT_EQ(cmd.CheckExec(), c.nExpected) << c.calls;
    EXPECT_EQ(scripted::callNames(), Words(c.calls));
    Lines vecTraces{"4|[ENTER] virtual int CLoggerConfigCmd::CheckExec()"};
    if (c.note) vecTraces.push_back(std::string("1|bool CLoggerConfigCmd::isSyslogoutputOn() SyslogOutput is ") + c.note);
    vecTraces.push_back("4|[LEAVE] virtual int CLoggerConfigCmd::CheckExec(), rc=" + std::to_string(c.nExpected));
    EXPECT_EQ(scripted::traces(), vecTraces) << c.calls;
  }
}

}  // namespace
