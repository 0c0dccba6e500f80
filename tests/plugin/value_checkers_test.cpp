// The value checkers: CheckStrParam, CheckCommandPair, CheckOnOffParam and
// CheckIntParam.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/plugin/plugin_test_support.h"

namespace {

const std::string kStrSig = "bool CLoggerConfigCmd::CheckStrParam(std::string, std::string, std::string&)";
const std::string kPairSig =
    "bool CLoggerConfigCmd::CheckCommandPair(CCommandParam, std::string, std::string, std::string&)";
const char kUntouched[] = "untouched";

std::string NotFound(const std::string& strValue, const std::string& strSet) {
  return "16|" + kStrSig + " Parameter(" + strValue + ") not found in " + strSet;
}

class CheckerTest : public PluginTest {
 protected:
  // Built before each case, so that only the checker's own calls are recorded.
  void SetUp() override {
    PluginTest::SetUp();
    pCmd.reset(new CLoggerConfigCmd);
    scripted::calls().clear();
  }
  std::unique_ptr<CLoggerConfigCmd> pCmd;
};

struct StrCase {
  const char* name;
  std::string value;
  std::string allowed;
  bool expected;
  std::string out;                   // kUntouched when refused
  std::vector<std::string> traces;
};
KTL_PRINT_CASE_BY_NAME(StrCase)

class StrParamTest : public CheckerTest, public ::testing::WithParamInterface<StrCase> {};

TEST_P(StrParamTest, FindsTheLowerCasedValueInTheSet) {
  const StrCase& c = GetParam();
  std::string strOut = kUntouched;
  EXPECT_EQ(pCmd->CheckStrParam(c.value, c.allowed, strOut), c.expected);
  EXPECT_EQ(strOut, c.out);
  EXPECT_EQ(scripted::traces(), c.traces);
}

INSTANTIATE_TEST_SUITE_P(
    Sets, StrParamTest,
    ::testing::Values(StrCase{"mixed case", "Edit", "cur|edit", true, "edit", {}},
                      StrCase{"first entry", "cur", "cur|edit", true, "cur", {}},
                      StrCase{"last of three", "DISK", "cpu|mem|disk", true, "disk", {}},
                      StrCase{"empty value", "", "cur|edit", false, kUntouched, {NotFound("", "cur|edit")}},
                      StrCase{"prefix", "edi", "cur|edit", false, kUntouched, {NotFound("edi", "cur|edit")}},
                      StrCase{"longer", "edits", "cur|edit", false, kUntouched, {NotFound("edits", "cur|edit")}},
                      StrCase{"the whole set", "cur|edit", "cur|edit", false, kUntouched,
                              {NotFound("cur|edit", "cur|edit")}},
                      StrCase{"blank around", " on", "on|off", false, kUntouched, {NotFound(" on", "on|off")}},
                      StrCase{"set entries keep their case", "On", "On|off", false, kUntouched,
                              {NotFound("On", "On|off")}},
                      StrCase{"value traced as typed", "WRN%s", "inf|err", false, kUntouched,
                              {NotFound("WRN%s", "inf|err")}}),
    CaseName<StrCase>);

struct PairCase {
  const char* name;
  std::string option;
  std::string value;
  std::string expectedName;
  bool expected;
  std::string out;
  std::vector<std::string> traces;  // after the entry line
};
KTL_PRINT_CASE_BY_NAME(PairCase)

class CommandPairTest : public CheckerTest, public ::testing::WithParamInterface<PairCase> {};

TEST_P(CommandPairTest, NeedsTheExactOptionAndAValueOfTheSet) {
  const PairCase& c = GetParam();
  CCommandParam param;
  param.m_strOption = c.option;
  param.m_strValue = c.value;
  std::string strOut = kUntouched;
  EXPECT_EQ(pCmd->CheckCommandPair(param, c.expectedName, "on|off", strOut), c.expected);
  EXPECT_EQ(strOut, c.out);
  std::vector<std::string> vecTraces{"4|[ENTER] " + kPairSig + " " + c.expectedName};
  vecTraces.insert(vecTraces.end(), c.traces.begin(), c.traces.end());
  EXPECT_EQ(scripted::traces(), vecTraces);
}

const std::string kPairFalse = "4|[LEAVE] " + kPairSig + ", rc=FALSE";

INSTANTIATE_TEST_SUITE_P(
    Pairs, CommandPairTest,
    ::testing::Values(PairCase{"match", "-setting", "on", "-setting", true, "on", {}},
                      PairCase{"value case ignored", "-setting", "OFF", "-setting", true, "off", {}},
                      PairCase{"option case counts", "-Setting", "on", "-setting", false, kUntouched, {kPairFalse}},
                      PairCase{"other option", "-settings", "on", "-setting", false, kUntouched, {kPairFalse}},
                      PairCase{"empty option word", "", "on", "-setting", false, kUntouched, {}},
                      PairCase{"value not in set", "-setting", "yes", "-setting", false, kUntouched,
                               {NotFound("yes", "on|off"), kPairFalse}},
                      PairCase{"name written literally", "-a%sb", "on", "-a%sb", true, "on", {}}),
    CaseName<PairCase>);

struct OnOffCase {
  const char* name;
  std::string value;
  bool expected;
  int out;
};
KTL_PRINT_CASE_BY_NAME(OnOffCase)

class OnOffTest : public CheckerTest, public ::testing::WithParamInterface<OnOffCase> {};

TEST_P(OnOffTest, EncodesOnAndOff) {
  const OnOffCase& c = GetParam();
  int nOut = -7;
  EXPECT_EQ(pCmd->CheckOnOffParam(c.value, nOut), c.expected);
  EXPECT_EQ(nOut, c.out);
  EXPECT_EQ(scripted::traces().size(), c.expected ? 0u : 1u);
}

INSTANTIATE_TEST_SUITE_P(Switches, OnOffTest,
                         ::testing::Values(OnOffCase{"on", "on", true, 0x11}, OnOffCase{"off", "off", true, 0x10},
                                           OnOffCase{"upper case off", "OFF", true, 0x10},
                                           OnOffCase{"mixed case on", "oN", true, 0x11},
                                           OnOffCase{"empty", "", false, -7}, OnOffCase{"one", "1", false, -7},
                                           OnOffCase{"onoff", "onoff", false, -7}),
                         CaseName<OnOffCase>);

struct IntCase {
  const char* name;
  std::string value;
  int min;
  int max;
  bool expected;
  int out;
};
KTL_PRINT_CASE_BY_NAME(IntCase)

class IntParamTest : public CheckerTest, public ::testing::WithParamInterface<IntCase> {};

TEST_P(IntParamTest, AcceptsUpToFiveDigitsWithinTheBounds) {
  const IntCase& c = GetParam();
  int nOut = -7;
  EXPECT_EQ(pCmd->CheckIntParam(c.value, c.min, c.max, nOut), c.expected);
  EXPECT_EQ(nOut, c.out);
  EXPECT_TRUE(scripted::traces().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, IntParamTest,
    ::testing::Values(IntCase{"leading zeros", "00100", 1, 100, true, 100},
                      IntCase{"five digits", "99999", 0, 1000000, true, 99999},
                      IntCase{"six digits", "100000", 0, 1000000, false, -7},
                      IntCase{"six digits of zeros", "000001", 0, 10, false, -7},
                      IntCase{"minus sign", "-5", -10, 10, false, -7},
                      IntCase{"plus sign", "+5", 0, 10, false, -7},
                      IntCase{"leading blank", " 5", 0, 10, false, -7},
                      IntCase{"trailing blank", "5 ", 0, 10, false, -7},
                      IntCase{"hex", "0x10", 0, 100, false, -7},
                      IntCase{"letter", "1a", 0, 100, false, -7},
                      IntCase{"empty within", "", 0, 10, true, 0},
                      IntCase{"empty below", "", 1, 10, false, -7},
                      IntCase{"minimum", "1", 1, 10, true, 1},
                      IntCase{"maximum", "10", 1, 10, true, 10},
                      IntCase{"below", "0", 1, 10, false, -7},
                      IntCase{"above", "11", 1, 10, false, -7},
                      IntCase{"minimum above maximum", "5", 10, 1, false, -7},
                      IntCase{"negative bounds", "0", -5, -1, false, -7},
                      IntCase{"zero to a negative minimum", "0", -5, 0, true, 0}),
    CaseName<IntCase>);

}  // namespace
