// CCommand of the development host: word grouping, the audit log written by
// Exec and the session id.
#include <unistd.h>

#include "host/command.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

using Pairs = std::vector<std::pair<std::string, std::string> >;

// Exposes the pairs that CheckParam groups.
class CGroupingProbe : public CCommand {
 public:
  Pairs Grouped() const {
    Pairs pairs;
    for (const CCommandParam& param : m_vecCommandParam) pairs.push_back({param.m_strOption, param.m_strValue});
    return pairs;
  }
};

// One command groups every line in turn, so each must replace the last.
TEST(CommandTest, GroupsOptionsWithTheirValuesReplacingTheLastLine) {
  const struct {
    const char* name;
    std::vector<std::string> vecWords;
    bool bGrouped;
    Pairs pairs;
  } cases[] = {
      {"three pairs", {"-mp", "/data", "-setting", "on", "-threshold", "90"}, true,
       {{"-mp", "/data"}, {"-setting", "on"}, {"-threshold", "90"}}},
      {"options without values", {"-save", "-nochk"}, true, {{"-save", ""}, {"-nochk", ""}}},
      {"no words", {}, true, {}},
      {"a dash word is an option, not a value", {"-threshold", "-5"}, true, {{"-threshold", ""}, {"-5", ""}}},
      {"value first", {"cur"}, false, {}},
      {"two values after one option", {"-confirm", "cur", "edit"}, false, {}},
      {"empty word first", {"", "-save"}, false, {}},
  };
  CGroupingProbe command;
  for (const auto& c : cases) {
    EXPECT_EQ(command.CheckParam(c.vecWords) == 0, c.bGrouped) << c.name;
    EXPECT_EQ(command.Grouped(), c.pairs) << c.name;
  }
}

class CommandExecTest : public devhost_test::DevhostTest {};

// Exec records the command on one line, creating the state directory; when
// the record cannot be written the command does not run.
TEST_F(CommandExecTest, AppendsOneAuditLinePerCommandOrFailsNamingTheLog) {
  SetEnv("KTL_STATE_DIR", Path("new/state"));
  CGroupingProbe command;
  ASSERT_EQ(command.Exec("logger -confirm cur"), 0);
  ASSERT_EQ(command.Exec("logger -mp /data\n-save"), 0);
  const std::string strSession = "session=" + std::to_string(getsid(0));
  const std::vector<std::string> vecLines = devhost_test::Lines(devhost_test::ReadFile(Path("new/state/audit.log")));
  ASSERT_EQ(vecLines.size(), 2u);
  EXPECT_EQ(devhost_test::AfterTimestamp(vecLines[0]), strSession + " logger -confirm cur");
  EXPECT_EQ(devhost_test::AfterTimestamp(vecLines[1]), strSession + " logger -mp /data -save");

  devhost_test::WriteFile(Path("plain-file"), "");
  SetEnv("KTL_STATE_DIR", Path("plain-file/state"));
  ::testing::internal::CaptureStderr();
  EXPECT_NE(command.Exec("logger -save"), 0);
  const std::string strError = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(strError.find("audit record could not be written"), std::string::npos) << strError;
  EXPECT_NE(strError.find(Path("plain-file")), std::string::npos) << strError;
}

}  // namespace
