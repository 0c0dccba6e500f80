// Confirm: which record is displayed, the failures of reading it, and the
// trace lines of Confirm itself.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/plugin/plugin_test_support.h"

namespace {

const std::string kEnter = "4|[ENTER] int CLoggerConfigCmd::Confirm() ";
const std::string kLeave = "4|[LEAVE] int CLoggerConfigCmd::Confirm(), rc=";
const char kNotInstalled[] = "MSG_CLI_LOGGER_INSTALL|0|";
const char kAppError[] = "MSG_CLI_ERROR_APPLICATION|4278190081|";

// A record told apart by its syslog switch and cpu interval: the
// configuration in effect is "17:60"; the pending one (syslog not set, cpu
// set) is "0:10" alone and "17:10" once completed with the one in effect.
const char kEffective[] = "17:60";
const char kMerged[] = "17:10";

std::string Tag(const Velmora_LoggerConf& conf) {
  return std::to_string(conf.syslogOutput.nOutput) + ":" + std::to_string(conf.cpu.nInterval);
}

struct ConfirmCase {
  const char* name;
  std::string type;  // m_strConfirmType
  bool bPending;     // ReadConfFile's answer
  int nGetParameter;
  bool bOutput;
  int nExpected;
  bool bReadsPending;
  Lines shows;
  const char* displayed;  // Tag of the record shown; nullptr = no display
};
KTL_CASE_FIXTURE(ConfirmTest, ConfirmCase);

TEST_P(ConfirmTest, DisplaysTheChosenRecordOrReportsWhyNot) {
  const ConfirmCase& c = GetParam();
  scripted::Script& s = scripted::script();
  s.effective.syslogOutput.nOutput = 0x11;
  s.effective.cpu = Monitor(0x11, 60, 3, 80);
  s.pending.cpu = Monitor(0x11, 10, 2, 70);
  s.bReadConfFileResult = c.bPending;
  s.nGetParameterResult = c.nGetParameter;
  s.bOutputResult = c.bOutput;
  s.mapShowResult = {{"MSG_CLI_LOGGER_INSTALL", 31}, {"MSG_CLI_ERROR_APPLICATION", 32}};
  CLoggerConfigCmd cmd;
  cmd.m_strConfirmType = c.type;
  scripted::calls().clear();

  testing::internal::CaptureStdout();
  const int nResult = cmd.Confirm();
  const std::string strWritten = testing::internal::GetCapturedStdout();

  EXPECT_EQ(nResult, c.nExpected);
  EXPECT_EQ(scripted::callsOf("ReadConfFile").size(), c.bReadsPending ? 1u : 0u);
  EXPECT_EQ(scripted::shows(), c.shows);
  if (c.displayed) {
    EXPECT_EQ(scripted::callsOf("Output").size(), 1u);
    ASSERT_FALSE(scripted::shownRecords().empty());
    EXPECT_EQ(Tag(scripted::shownRecords().back()), c.displayed);
  } else {
    EXPECT_TRUE(scripted::callsOf("Init").empty());
  }
  EXPECT_EQ(strWritten, c.displayed && c.bOutput ? "rendered\n" : "");
  Lines vecOwn;
  for (const std::string& strLine : scripted::traces())
    if (strLine.find("CLoggerConfigCmd::Confirm()") != std::string::npos) vecOwn.push_back(strLine);
  Lines vecExpected{kEnter + c.type};
  if (c.nExpected == 0 || c.displayed) vecExpected.push_back(kLeave + std::to_string(c.nExpected));
  EXPECT_EQ(vecOwn, vecExpected);
}

// Confirm's LEAVE line is written when the record was displayed, even if the display failed.
INSTANTIATE_TEST_SUITE_P(
    Records, ConfirmTest,
    ::testing::Values(
        ConfirmCase{"cur ignores pending edits", "cur", true, 0, true, 0, false, {}, kEffective},
        ConfirmCase{"edit completes the pending edits", "edit", true, 0, true, 0, true, {}, kMerged},
        ConfirmCase{"edit with nothing pending shows the effective one", "edit", false, 0, true, 0, true, {}, kEffective},
        ConfirmCase{"the comparison is case-sensitive", "CUR", true, 0, true, 0, true, {}, kMerged},
        ConfirmCase{"cur, tool not installed", "cur", true, 176, true, 31, false, {kNotInstalled}, nullptr},
        ConfirmCase{"cur, service fails", "cur", true, 1, true, 32, false, {kAppError}, nullptr},
        ConfirmCase{"edit with nothing pending, tool not installed", "edit", false, 176, true, 31, true, {kNotInstalled}, nullptr},
        ConfirmCase{"edit, the merge fails", "edit", true, 5, true, 32, true, {kAppError}, nullptr},
        ConfirmCase{"the display fails", "cur", false, 0, false, 32, false, {kAppError}, kEffective}),
    CaseName<ConfirmCase>);

}  // namespace
