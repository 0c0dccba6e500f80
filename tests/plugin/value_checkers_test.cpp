// The value checkers: CheckStrParam, CheckCommandPair, CheckOnOffParam and
// CheckIntParam.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/plugin/plugin_test_support.h"

namespace {

const std::string kStrSig = "bool CLoggerConfigCmd::CheckStrParam(std::string, std::string, std::string&)";
const std::string kPairSig = "bool CLoggerConfigCmd::CheckCommandPair(CCommandParam, std::string, std::string, std::string&)";
const std::string kPairFalse = "4|[LEAVE] " + kPairSig + ", rc=FALSE";
const char kUntouched[] = "untouched";

std::string NotFound(const std::string& strValue, const std::string& strSet) {
  return "16|" + kStrSig + " Parameter(" + strValue + ") not found in " + strSet;
}

struct StrCase {
  const char* name;
  std::string value, allowed, out;  // out: kUntouched when refused
};
KTL_CASE_FIXTURE(StrParamTest, StrCase);

TEST_P(StrParamTest, FindsTheLowerCasedValueInTheSet) {
  const StrCase& c = GetParam();
  CLoggerConfigCmd cmd;
  scripted::calls().clear();
  std::string strOut = kUntouched;
  const bool bFound = c.out != kUntouched;
  EXPECT_EQ(cmd.CheckStrParam(c.value, c.allowed, strOut), bFound);
  EXPECT_EQ(strOut, c.out);
  EXPECT_EQ(scripted::traces(), bFound ? Lines{} : Lines{NotFound(c.value, c.allowed)});
}

INSTANTIATE_TEST_SUITE_P(Sets, StrParamTest,
                         ::testing::Values(StrCase{"mixed case", "Edit", "cur|edit", "edit"},
                                           StrCase{"last of three", "DISK", "cpu|mem|disk", "disk"},
                                           StrCase{"empty value", "", "cur|edit", kUntouched},
                                           StrCase{"prefix", "edi", "cur|edit", kUntouched},
                                           StrCase{"longer", "edits", "cur|edit", kUntouched},
                                           StrCase{"the whole set", "cur|edit", "cur|edit", kUntouched},
                                           StrCase{"blank around", " on", "on|off", kUntouched},
                                           StrCase{"set entries keep their case", "On", "On|off", kUntouched},
                                           StrCase{"value traced as typed", "WRN%s", "inf|err", kUntouched}),
                         CaseName<StrCase>);

struct PairCase {
  const char* name;
  std::string option, value, expectedName, out;
  Lines traces;  // after the entry line
};
KTL_CASE_FIXTURE(CommandPairTest, PairCase);

TEST_P(CommandPairTest, NeedsTheExactOptionAndAValueOfTheSet) {
  const PairCase& c = GetParam();
  CLoggerConfigCmd cmd;
  scripted::calls().clear();
  CCommandParam param;
  param.m_strOption = c.option;
  param.m_strValue = c.value;
  std::string strOut = kUntouched;
  EXPECT_EQ(cmd.CheckCommandPair(param, c.expectedName, "on|off", strOut), c.out != kUntouched);
  EXPECT_EQ(strOut, c.out);
  Lines vecTraces{"4|[ENTER] " + kPairSig + " " + c.expectedName};
  vecTraces.insert(vecTraces.end(), c.traces.begin(), c.traces.end());
  EXPECT_EQ(scripted::traces(), vecTraces);
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, CommandPairTest,
    ::testing::Values(PairCase{"value case ignored", "-setting", "OFF", "-setting", "off", {}},
                      PairCase{"option case counts", "-Setting", "on", "-setting", kUntouched, {kPairFalse}},
                      PairCase{"other option", "-settings", "on", "-setting", kUntouched, {kPairFalse}},
                      PairCase{"empty option word", "", "on", "-setting", kUntouched, {}},
                      PairCase{"value not in set", "-setting", "yes", "-setting", kUntouched, {NotFound("yes", "on|off"), kPairFalse}},
                      PairCase{"name written literally", "-a%sb", "on", "-a%sb", "on", {}}),
    CaseName<PairCase>);

class OnOffTest : public PluginTest {};

TEST_F(OnOffTest, OnOffIsEncodedInEitherCase) {
  CLoggerConfigCmd cmd;
  for (const auto& c : std::vector<std::pair<std::string, int>>{{"on", 0x11}, {"OFF", 0x10}, {"", -7}, {"onoff", -7}}) {
    scripted::calls().clear();
    int nOut = -7;
    EXPECT_EQ(cmd.CheckOnOffParam(c.first, nOut), c.second != -7) << c.first;
    EXPECT_EQ(nOut, c.second) << c.first;
    EXPECT_EQ(scripted::traces().size(), c.second != -7 ? 0u : 1u) << c.first;
  }
}

struct IntCase {
  const char* name;
  std::string value;
  int min, max, out;  // out -7: refused
};
KTL_CASE_FIXTURE(IntParamTest, IntCase);

TEST_P(IntParamTest, AcceptsUpToFiveDigitsWithinTheBounds) {
  const IntCase& c = GetParam();
  CLoggerConfigCmd cmd;
  scripted::calls().clear();
  int nOut = -7;
  EXPECT_EQ(cmd.CheckIntParam(c.value, c.min, c.max, nOut), c.out != -7);
  EXPECT_EQ(nOut, c.out);
  EXPECT_TRUE(scripted::traces().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, IntParamTest,
    ::testing::Values(IntCase{"leading zeros", "00100", 1, 100, 100}, IntCase{"five digits", "99999", 0, 1000000, 99999},
                      IntCase{"six digits", "100000", 0, 1000000, -7}, IntCase{"six digits of zeros", "000001", 0, 10, -7},
                      IntCase{"minus sign", "-5", -10, 10, -7}, IntCase{"plus sign", "+5", 0, 10, -7},
                      IntCase{"leading blank", " 5", 0, 10, -7}, IntCase{"trailing blank", "5 ", 0, 10, -7},
                      IntCase{"hex", "0x10", 0, 100, -7}, IntCase{"empty within", "", 0, 10, 0},
                      IntCase{"empty below", "", 1, 10, -7}, IntCase{"minimum", "1", 1, 10, 1}, IntCase{"maximum", "10", 1, 10, 10},
                      IntCase{"below", "0", 1, 10, -7}, IntCase{"above", "11", 1, 10, -7},
                      IntCase{"minimum above maximum", "5", 10, 1, -7}, IntCase{"zero to a negative minimum", "0", -5, 0, 0}),
    CaseName<IntCase>);

}  // namespace
