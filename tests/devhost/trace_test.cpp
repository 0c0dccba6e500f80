// CTraceUtility::WriteDebug of the development host.
#include <cerrno>

#include "host/trace_utility.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

class TraceTest : public devhost_test::DevhostTest {
 protected:
  std::string Trace() { return devhost_test::ReadFile(Path("trace.log")); }
};

TEST_F(TraceTest, WritesOnlyEnabledLevels) {
  const struct {
    const char* name;
    const char* pszMask;
    CTraceUtility::TRACE_DBG_LEVEL eLevel;
    bool bWritten;
  } cases[] = {
      {"off by default", "", CTraceUtility::TRACE_DBG_NOTE, false},
      {"level in mask", "6", CTraceUtility::TRACE_DBG_ENV, true},
      {"level not in mask", "6", CTraceUtility::TRACE_DBG_NOTE, false},
      {"hex mask", "0x10", CTraceUtility::TRACE_DBG_PARAM, true},
  };
  for (const auto& c : cases) {
    std::filesystem::remove(Path("trace.log"));
    SetEnv("KTL_TRACE_MASK", c.pszMask);
    CTraceUtility::WriteDebug("cli", c.eLevel, "text");
    EXPECT_EQ(!Trace().empty(), c.bWritten) << c.name;
  }
}

TEST_F(TraceTest, OneLinePerCallWithTimeModuleLevelAndTheWholeFormattedText) {
  SetEnv("KTL_TRACE_MASK", "31");
  const std::string strLong(20000, 'x');
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_FUNC, "[LEAVE] %s, rc=%d", "int CLoggerConfigCmd::Save()",
                            -1);
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_PARAM, "Parameter Error: %s %s", "-mp", "100%");
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_NOTE, "<%s>", strLong.c_str());
  const std::vector<std::string> vecLines = devhost_test::Lines(Trace());
  ASSERT_EQ(vecLines.size(), 3u) << Trace();
  EXPECT_EQ(devhost_test::AfterTimestamp(vecLines[0]), "cli 4 [LEAVE] int CLoggerConfigCmd::Save(), rc=-1");
  EXPECT_EQ(devhost_test::AfterTimestamp(vecLines[1]), "cli 16 Parameter Error: -mp 100%");
  EXPECT_EQ(devhost_test::AfterTimestamp(vecLines[2]), "cli 1 <" + strLong + ">");
}

TEST_F(TraceTest, AnUnwritableTraceIsDroppedAndLeavesErrnoAlone) {
  SetEnv("KTL_TRACE_MASK", "31");
  SetEnv("KTL_TRACE_FILE", Path("no/such/dir/trace.log"));
  errno = 42;
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_NOTE, "lost");
  EXPECT_EQ(errno, 42);
}

}  // namespace
