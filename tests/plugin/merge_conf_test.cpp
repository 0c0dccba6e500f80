// MergeConf: the configuration in effect completes a pending record.
#include <gtest/gtest.h>

#include "tests/plugin/plugin_test_support.h"

namespace {

const char kEnter[] = "4|[ENTER] int CLoggerConfigCmd::MergeConf(Velmora_LoggerConf&)";
const char kLeave[] = "4|[LEAVE] int CLoggerConfigCmd::MergeConf(Velmora_LoggerConf&), rc=";

struct MergeConfCase {
  const char* name;
  int nStatus;       // GetParameter
  int nShowResult;   // what show answers for the failure message
  int nExpected;
  bool bMerged;
  std::vector<std::string> shows;
};
KTL_PRINT_CASE_BY_NAME(MergeConfCase)

class MergeConfTest : public PluginTest, public ::testing::WithParamInterface<MergeConfCase> {};

TEST_P(MergeConfTest, MergesOnlyWhenNothingFailedVisibly) {
  const MergeConfCase& c = GetParam();
  scripted::script().nGetParameterResult = c.nStatus;
  scripted::script().nShowDefault = c.nShowResult;
  scripted::script().effective.cpu = Monitor(0x11, 30, 4, 85);
  scripted::script().effective.fs.vecThreshold = {FsEntry(1, 90, 0x11, "/data")};
  CLoggerConfigCmd cmd;
  scripted::calls().clear();

  Velmora_LoggerConf conf;
  conf.mem = Monitor(0x10, -1, -1, -1);
  EXPECT_EQ(cmd.MergeConf(conf), c.nExpected) << c.name;

  EXPECT_EQ(scripted::shows(), c.shows) << c.name;
  // The configuration in effect is kept in the member whatever happened.
  EXPECT_EQ(cmd.m_LoggerConf.cpu.nInterval, 30) << c.name;
  EXPECT_EQ(conf.cpu.nAvailable, c.bMerged ? 0x11 : 0) << c.name;
  EXPECT_EQ(Describe(conf.fs.vecThreshold),
            c.bMerged ? std::vector<std::string>{"/data:90:17:1"} : std::vector<std::string>{})
      << c.name;
  EXPECT_EQ(conf.mem.nAvailable, 0x10) << c.name;
  if (c.bMerged) {
    ASSERT_EQ(scripted::shownRecords().size(), 1u) << c.name;
    EXPECT_EQ(scripted::shownRecords()[0].cpu.nThreshold, 85) << c.name;
    EXPECT_EQ(scripted::callNames().back(), "ShowConf") << c.name;
  } else {
    EXPECT_TRUE(scripted::shownRecords().empty()) << c.name;
  }
  const std::vector<std::string> vecTraces = scripted::traces();
  ASSERT_GE(vecTraces.size(), 2u);
  EXPECT_EQ(vecTraces.front(), kEnter);
  EXPECT_EQ(vecTraces.back(), kLeave + std::to_string(c.nExpected));
}

INSTANTIATE_TEST_SUITE_P(
    Statuses, MergeConfTest,
    ::testing::Values(
        MergeConfCase{"read", 0, 9, 0, true, {}},
        MergeConfCase{"not installed", 176, 9, 9, false, {"MSG_CLI_LOGGER_INSTALL|0|"}},
        MergeConfCase{"other failure", 3, 9, 9, false, {"MSG_CLI_ERROR_APPLICATION|4278190081|"}},
        MergeConfCase{"negative failure", -1, 9, 9, false, {"MSG_CLI_ERROR_APPLICATION|4278190081|"}},
        MergeConfCase{"not installed, message answers 0", 176, 0, 0, true, {"MSG_CLI_LOGGER_INSTALL|0|"}},
        MergeConfCase{"other failure, message answers 0", 5, 0, 0, true, {"MSG_CLI_ERROR_APPLICATION|4278190081|"}}),
    CaseName<MergeConfCase>);

}  // namespace
