// The edit commands for syslog output, alert levels and the usage monitors,
// and through them the value writers EditOnOff and EditIntValue.
#include <gtest/gtest.h>

#include <set>

#include "tests/plugin/plugin_test_support.h"

namespace {

const int kErr = 7;  // what show answers for the application error here

struct EditCase {
  const char* name;
  LoggerExecMethod method;
  int nAlertLevel, nDevice, nOnOff, nInterval, nCount, nThreshold;
  std::set<std::string> failWrites;
  int nExpected;
  std::string writes;
  Lines shows;
};
KTL_CASE_FIXTURE(EditCommandTest, EditCase);

TEST_P(EditCommandTest, WritesOnlyWhatTheFormGives) {
  const EditCase& c = GetParam();
  // The hold message's answer is informational: never an operation's result.
  scripted::script().mapShowResult = {{"MSG_CLI_ERROR_APPLICATION", kErr}, {"MSG_CLI_HOLD_PARAM", 5}};
  scripted::script().setFailWrite = c.failWrites;
  CLoggerConfigCmd cmd;
  cmd.m_nAlertLevel = c.nAlertLevel;
  cmd.m_nDevice = c.nDevice;
  cmd.m_nOnOff = c.nOnOff;
  cmd.m_nInterval = c.nInterval;
  cmd.m_nCount = c.nCount;
  cmd.m_nThreshold = c.nThreshold;
  scripted::calls().clear();

  EXPECT_EQ((cmd.*c.method)(), c.nExpected);
  EXPECT_EQ(Writes(), Words(c.writes));
  EXPECT_EQ(scripted::shows(), c.shows);
  Lines vecTraces;
  if (c.method == &CLoggerConfigCmd::CmdDevice)
    vecTraces = {"4|[ENTER] int CLoggerConfigCmd::CmdDevice()", "4|[LEAVE] int CLoggerConfigCmd::CmdDevice()"};
  EXPECT_EQ(scripted::traces(), vecTraces);
}

const LoggerExecMethod kSyslog = &CLoggerConfigCmd::CmdSyslog;
const LoggerExecMethod kAlert = &CLoggerConfigCmd::CmdAlert;
const LoggerExecMethod kDevice = &CLoggerConfigCmd::CmdDevice;

INSTANTIATE_TEST_SUITE_P(
    Forms, EditCommandTest,
    ::testing::Values(
        EditCase{"syslog on", kSyslog, -1, -1, 0x11, -1, -1, -1, {}, 0, "Syslog/Output=0x11", {kHold}},
        EditCase{"alert err on", kAlert, 2, -1, 0x11, -1, -1, -1, {}, 0, "Syslog/Error=0x11", {kHold}},
        EditCase{"cpu on with all values, in decimal", kDevice, -1, 0, 0x11, 10, -2, 85, {}, 0,
                 "CPU/Available=0x11 CPU/Interval=10 CPU/Count=-2 CPU/Threshold=85", {kHold}},
        EditCase{"disk never writes a threshold", kDevice, -1, 2, 0x11, 60, 5, 70, {}, 0,
                 "FILESYS/Available=0x11 FILESYS/Interval=60 FILESYS/Count=5", {kHold}},
        EditCase{"cpu off leaves the values", kDevice, -1, 0, 0x10, 10, 3, 85, {}, 0, "CPU/Available=0x10", {kHold}},
        EditCase{"switch write fails, nothing else", kDevice, -1, 1, 0x11, 30, 4, 80, {"MEMORY/Available"}, kErr,
                 "MEMORY/Available=0x11", {kAppError}},
        // A failed value write shows its error, the rest is still written, no hold, and the result stays the switch's.
        EditCase{"two values fail, two errors", kDevice, -1, 0, 0x11, 10, 3, 85, {"CPU/Interval", "CPU/Threshold"}, 0,
                 "CPU/Available=0x11 CPU/Interval=10 CPU/Count=3 CPU/Threshold=85", {kAppError, kAppError}}),
    CaseName<EditCase>);

}  // namespace
