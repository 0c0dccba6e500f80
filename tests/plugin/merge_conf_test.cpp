// MergeConf: the configuration in effect completes a pending record.
#include <gtest/gtest.h>

#include "tests/plugin/plugin_test_support.h"

namespace {

const char kEnter[] = "4|[ENTER] int CLoggerConfigCmd::MergeConf(Velmora_LoggerConf&)";
const char kLeave[] = "4|[LEAVE] int CLoggerConfigCmd::MergeConf(Velmora_LoggerConf&), rc=";

struct MergeConfCase {
  const char* name;
  int nStatus;      // GetParameter
  int nShowResult;  // what show answers for the failure message
  int nExpected;
  bool bMerged;
  Lines shows;
};
KTL_CASE_FIXTURE(MergeConfTest, MergeConfCase);

TEST_P(MergeConfTest, MergesOnlyWhenNothingFailedVisibly) {
  const MergeConfCase& c = GetParam();
  scripted::script().nGetParameterResult = c.nStatus;
  scripted::script().nShowDefault = c.nShowResult;
  scripted::script().effective.cpu = Monitor(0x11, 30, 4, 85);
  CLoggerConfigCmd cmd;
  scripted::calls().clear();

  Velmora_LoggerConf conf;
  EXPECT_EQ(cmd.MergeConf(conf), c.nExpected);
  EXPECT_EQ(scripted::shows(), c.shows);
  // The configuration in effect is kept in the member whatever happened.
  EXPECT_EQ(cmd.m_LoggerConf.cpu.nInterval, 30);
  EXPECT_EQ(conf.cpu.nAvailable, c.bMerged ? 0x11 : 0);
  EXPECT_EQ(scripted::shownRecords().size(), c.bMerged ? 1u : 0u);
  EXPECT_EQ(scripted::callNames().back() == "ShowConf", c.bMerged);
  EXPECT_EQ(scripted::traces().front(), kEnter);
  EXPECT_EQ(scripted::traces().back(), kLeave + std::to_string(c.nExpected));
}

INSTANTIATE_TEST_SUITE_P(
    Statuses, MergeConfTest,
    ::testing::Values(MergeConfCase{"read", 0, 9, 0, true, {}},
                      MergeConfCase{"not installed", 176, 9, 9, false, {"MSG_CLI_LOGGER_INSTALL|0|"}},
                      MergeConfCase{"other failure", -1, 9, 9, false, {"MSG_CLI_ERROR_APPLICATION|4278190081|"}},
                      MergeConfCase{"not installed, message answers 0", 176, 0, 0, true, {"MSG_CLI_LOGGER_INSTALL|0|"}},
                      MergeConfCase{"other failure, message answers 0", 5, 0, 0, true, {"MSG_CLI_ERROR_APPLICATION|4278190081|"}}),
    CaseName<MergeConfCase>);

}  // namespace
