// CTraceUtility::WriteDebug of the development host.
#include <cerrno>

#include "host/trace_utility.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

class TraceTest : public devhost_test::DevhostTest {
 protected:
  std::string Trace() { return devhost_test::ReadFile(Path("trace.log")); }
};

// Levels whose bit is in the mask (hexadecimal here) are written, one line
// per call with the time, module, level and the whole formatted text; with
// no mask set nothing is.
TEST_F(TraceTest, WritesEnabledLevelsOneLinePerCall) {
  SetEnv("KTL_TRACE_MASK", "");
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_NOTE, "off by default");
  SetEnv("KTL_TRACE_MASK", "0x16");
  const std::string strLong(20000, 'x');
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_FUNC, "[LEAVE] %s, rc=%d", "int CLoggerConfigCmd::Save()",
                            -1);
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_NOTE, "not in the mask");
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_PARAM, "Parameter Error: %s %s", "-mp", "100%");
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_ENV, "<%s>", strLong.c_str());
  const std::vector<std::string> vecLines = devhost_test::Lines(Trace());
  ASSERT_EQ(vecLines.size(), 3u) << Trace();
  EXPECT_EQ(devhost_test::AfterTimestamp(vecLines[0]), "cli 4 [LEAVE] int CLoggerConfigCmd::Save(), rc=-1");
  EXPECT_EQ(devhost_test::AfterTimestamp(vecLines[1]), "cli 16 Parameter Error: -mp 100%");
  EXPECT_EQ(devhost_test::AfterTimestamp(vecLines[2]), "cli 2 <" + strLong + ">");
}

TEST_F(TraceTest, AnUnwritableTraceIsDroppedAndLeavesErrnoAlone) {
  SetEnv("KTL_TRACE_MASK", "31");
  SetEnv("KTL_TRACE_FILE", Path("no/such/dir/trace.log"));
  errno = 42;
  CTraceUtility::WriteDebug("cli", CTraceUtility::TRACE_DBG_NOTE, "lost");
  EXPECT_EQ(errno, 42);
}

}  // namespace
