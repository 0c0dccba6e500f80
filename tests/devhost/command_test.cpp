// CCommand of the development host: word grouping. The audit record that
// Exec starts is tested through ktl-cli (tests/cli/audit.t).
#include "host/command.h"
#include <gtest/gtest.h>

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
      {"three pairs",
       {"-mp", "/data", "-setting", "on", "-threshold", "90"},
       true,
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

}  // namespace
