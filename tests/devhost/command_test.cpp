// CCommand of the development host: word grouping, the audit log written by
// Exec, the template name and the session id.
#include <unistd.h>

#include "devhost/lib/current_command.h"
#include "host/command.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

using devhost_test::DevhostTest;

// Exposes the pairs that CheckParam groups.
class CGroupingProbe : public CCommand {
 public:
  std::vector<std::pair<std::string, std::string> > Pairs() const {
    std::vector<std::pair<std::string, std::string> > vecPairs;
    for (const CCommandParam& param : m_vecCommandParam) vecPairs.push_back({param.m_strOption, param.m_strValue});
    return vecPairs;
  }
  std::string TemplateName() const { return m_strTemplateName; }
};

struct GroupingCase {
  const char* name;
  std::vector<std::string> vecWords;
  bool bGrouped;
  std::vector<std::pair<std::string, std::string> > vecPairs;
};
void PrintTo(const GroupingCase& c, std::ostream* os) { *os << c.name; }

class WordGroupingTest : public ::testing::TestWithParam<GroupingCase> {};

TEST_P(WordGroupingTest, GroupsOptionsWithTheirValues) {
  const GroupingCase& c = GetParam();
  CGroupingProbe command;
  const int nResult = command.CheckParam(c.vecWords);
  EXPECT_EQ(nResult == 0, c.bGrouped) << "result " << nResult;
  EXPECT_EQ(command.Pairs(), c.vecPairs);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, WordGroupingTest,
    ::testing::Values(
        GroupingCase{"no words", {}, true, {}},
        GroupingCase{"option and value", {"-confirm", "cur"}, true, {{"-confirm", "cur"}}},
        GroupingCase{"options without values", {"-save", "-nochk"}, true, {{"-save", ""}, {"-nochk", ""}}},
        GroupingCase{"three pairs",
                     {"-mp", "/data", "-setting", "on", "-threshold", "90"},
                     true,
                     {{"-mp", "/data"}, {"-setting", "on"}, {"-threshold", "90"}}},
        GroupingCase{"option after a value-less option", {"-discard", "-nochk"}, true, {{"-discard", ""}, {"-nochk", ""}}},
        GroupingCase{"a dash word is an option, not a value", {"-threshold", "-5"}, true, {{"-threshold", ""}, {"-5", ""}}},
        GroupingCase{"value first", {"cur"}, false, {}},
        GroupingCase{"two values after one option", {"-confirm", "cur", "edit"}, false, {}},
        GroupingCase{"empty word first", {"", "-save"}, false, {}}),
    devhost_test::CaseName<GroupingCase>);

TEST(WordGroupingAgainTest, ANewCommandLineReplacesTheOldPairs) {
  CGroupingProbe command;
  ASSERT_EQ(command.CheckParam({"-mp", "/data", "-setting", "on"}), 0);
  ASSERT_EQ(command.CheckParam({"-save"}), 0);
  EXPECT_EQ(command.Pairs(), (std::vector<std::pair<std::string, std::string> >{{"-save", ""}}));
}

TEST(CommandBaseTest, TakesItsTemplateNameFromTheCurrentCommand) {
  devhost::SetCurrentCommand("logger");
  CGroupingProbe command;
  devhost::SetCurrentCommand("");
  EXPECT_EQ(command.TemplateName(), "logger");
}

class CommandExecTest : public DevhostTest {};

TEST_F(CommandExecTest, AppendsOneAuditLinePerCommandCreatingTheStateDirectory) {
  m_env.Set("KTL_STATE_DIR", Path("new/state"));
  CGroupingProbe command;
  ASSERT_EQ(command.Exec("logger -confirm cur"), 0);
  ASSERT_EQ(command.Exec("logger -mp /data\n-save"), 0);

  const std::string strSession = "session=" + std::to_string(getppid());
  const std::vector<std::string> vecLines = devhost_test::Lines(devhost_test::ReadFile(Path("new/state/audit.log")));
  ASSERT_EQ(vecLines.size(), 2u);
  EXPECT_EQ(devhost_test::AfterTimestamp(vecLines[0]), strSession + " logger -confirm cur");
  EXPECT_EQ(devhost_test::AfterTimestamp(vecLines[1]), strSession + " logger -mp /data -save");
}

TEST_F(CommandExecTest, FailsWithAMessageWhenTheAuditLogCannotBeWritten) {
  devhost_test::WriteFile(Path("plain-file"), "");
  m_env.Set("KTL_STATE_DIR", Path("plain-file/state"));
  CGroupingProbe command;
  ::testing::internal::CaptureStderr();
  EXPECT_NE(command.Exec("logger -save"), 0);
  const std::string strError = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(strError.find("audit"), std::string::npos) << strError;
  EXPECT_NE(strError.find(Path("plain-file")), std::string::npos) << strError;
}

}  // namespace
