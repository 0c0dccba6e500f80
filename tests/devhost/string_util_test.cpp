// CStringUtil of the development host.
#include <list>

#include "host/string_util.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

struct SplitCase {
  const char* name;
  std::string strText;
  std::string strSeparator;
  std::list<std::string> lstPieces;
};
void PrintTo(const SplitCase& c, std::ostream* os) { *os << c.name; }

class SplitTest : public ::testing::TestWithParam<SplitCase> {};

TEST_P(SplitTest, GivesThePiecesBetweenSeparatorsInOrder) {
  SplitCase c = GetParam();
  EXPECT_EQ(CStringUtil::Split(c.strText, c.strSeparator), c.lstPieces);
  EXPECT_EQ(c.strText, GetParam().strText) << "the text must not change";
}

INSTANTIATE_TEST_SUITE_P(Cases, SplitTest,
                         ::testing::Values(SplitCase{"value set", "on|off", "|", {"on", "off"}},
                                           SplitCase{"empty piece between", "a||b", "|", {"a", "", "b"}},
                                           SplitCase{"separator at both ends", "|a|", "|", {"", "a", ""}},
                                           SplitCase{"empty text", "", "|", {""}},
                                           SplitCase{"no separator in text", "inf", "|", {"inf"}},
                                           SplitCase{"long separator", "a, b, c", ", ", {"a", "b", "c"}},
                                           SplitCase{"overlapping separator", "a|||b", "||", {"a", "|b"}},
                                           SplitCase{"empty separator", "a|b", "", {"a|b"}}),
                         devhost_test::CaseName<SplitCase>);

TEST(StringToLowerCaseTest, LowersAsciiLettersOnly) {
  EXPECT_EQ(CStringUtil::StringToLowerCase("-Confirm CUR /Data_1 \xC3\x84"), "-confirm cur /data_1 \xC3\x84");
}

}  // namespace
