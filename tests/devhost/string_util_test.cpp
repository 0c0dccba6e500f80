// CStringUtil of the development host.
#include <list>

#include "host/string_util.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

TEST(StringUtilTest, SplitGivesThePiecesBetweenSeparatorsInOrder) {
  const struct {
    const char* name;
    std::string strText;
    std::string strSeparator;
    std::list<std::string> lstPieces;
  } cases[] = {
      {"empty piece between", "a||b", "|", {"a", "", "b"}},
      {"separator at both ends", "|a|", "|", {"", "a", ""}},
      {"empty text", "", "|", {""}},
      {"long separator", "a, b, c", ", ", {"a", "b", "c"}},
      {"overlapping separator", "a|||b", "||", {"a", "|b"}},
      {"empty separator", "a|b", "", {"a|b"}},
  };
  for (const auto& c : cases) {
    std::string strText = c.strText;
    EXPECT_EQ(CStringUtil::Split(strText, c.strSeparator), c.lstPieces) << c.name;
    EXPECT_EQ(strText, c.strText) << c.name << ": the text must not change";
  }
}

}  // namespace
