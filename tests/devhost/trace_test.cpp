// CTraceUtility::WriteDebug of the development host.
#include <cerrno>

#include "host/trace_utility.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

using devhost_test::DevhostTest;

struct MaskCase {
  const char* name;
  const char* pszMask;
  CTraceUtility::TRACE_DBG_LEVEL eLevel;
  bool bWritten;
};
void PrintTo(const MaskCase& c, std::ostream* os) { *os << c.name; }

class TraceTest : public DevhostTest {
 protected:
  std::string Trace() { return devhost_test::ReadFile(Path("trace.log")); }
};

class TraceMaskTest : public TraceTest, public ::testing::WithParamInterface<MaskCase> {};

TEST_P(TraceMaskTest, WritesOnlyEnabledLevels) {
  const MaskCase& c = GetParam();
  m_env.Set("KTL_TRACE_MASK", c.pszMask);
  CTraceUtility::WriteDebug("cli", c.eLevel, "text");
  EXPECT_EQ(!Trace().empty(), c.bWritten) << Trace();
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TraceMaskTest,
    ::testing::Values(MaskCase{"off by default", "", CTraceUtility::TRACE_DBG_NOTE, false},
                      MaskCase{"zero mask", "0", CTraceUtility::TRACE_DBG_FUNC, false},
                      MaskCase{"every level", "31", CTraceUtility::TRACE_DBG_PARAM, true},
                      MaskCase{"level in mask", "6", CTraceUtility::TRACE_DBG_ENV, true},
                      MaskCase{"level not in mask", "6", CTraceUtility::TRACE_DBG_NOTE, false},
                      MaskCase{"hex mask", "0x10", CTraceUtility::TRACE_DBG_PARAM, true},
                      MaskCase{"hex mask other level", "0x10", CTraceUtility::TRACE_DBG_EXCEPTION, false}),
    devhost_test::CaseName<MaskCase>);

TEST_F(TraceTest, OneLinePerCallWithTimeModuleLevelAndFormattedText) {
  m_env.Set("KTL_TRACE_MASK", "31");
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_FUNC, "[LEAVE] %s, rc=%d", "int CLoggerConfigCmd::Save()",
                            -1);
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_PARAM, "Parameter Error: %s %s", "-mp", "100%");
  const std::vector<std::string> vecLines = devhost_test::Lines(Trace());
  ASSERT_EQ(vecLines.size(), 2u) << Trace();
  EXPECT_EQ(devhost_test::AfterTimestamp(vecLines[0]), "cli 4 [LEAVE] int CLoggerConfigCmd::Save(), rc=-1");
  EXPECT_EQ(devhost_test::AfterTimestamp(vecLines[1]), "cli 16 Parameter Error: -mp 100%");
}

TEST_F(TraceTest, ALongTextIsKeptWhole) {
  m_env.Set("KTL_TRACE_MASK", "1");
  const std::string strLong(20000, 'x');
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_NOTE, "<%s>", strLong.c_str());
  const std::string strTrace = Trace();
  ASSERT_GT(strTrace.size(), strLong.size());
  EXPECT_EQ(strTrace.substr(strTrace.size() - strLong.size() - 3), "<" + strLong + ">\n");
}

TEST_F(TraceTest, AnUnwritableTraceIsDroppedAndLeavesErrnoAlone) {
  m_env.Set("KTL_TRACE_MASK", "31");
  m_env.Set("KTL_TRACE_FILE", Path("no/such/dir/trace.log"));
  errno = 42;
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_NOTE, "lost");
  EXPECT_EQ(errno, 42);
}

}  // namespace
