// The parser: the grammar of the "logger" command line (which words are
// accepted, what each form stores, which operation it selects, what a refusal
// traces), the cross-checks against the limits file, and the value checkers
// (CheckStrParam, CheckCommandPair, CheckIntParam), each of which writes its
// out argument only when it accepts.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "tests/plugin/plugin_test_support.h"

namespace {

const std::string kSig =
    "virtual int CLoggerConfigCmd::CheckParam(std::vector<std::basic_string<char, std::char_traits<char>, "
    "std::allocator<char> >, std::allocator<std::basic_string<char, std::char_traits<char>, std::allocator<char> > > "
    ">)";
const std::string kLeave = "4|[LEAVE] " + kSig;
const int kRefused = 99;  // what show answers for MSG_CLI_ERROR_COMMAND here

const std::string kStrSig = "bool CLoggerConfigCmd::CheckStrParam(std::string, std::string, std::string&)";
const std::string kPairSig = "bool CLoggerConfigCmd::CheckCommandPair(CCommandParam, std::string, std::string, std::string&)";
const std::string kPairFalse = "4|[LEAVE] " + kPairSig + ", rc=FALSE";
const char kUntouched[] = "untouched";

std::string NotFound(const std::string& strValue, const std::string& strSet) {
  return "16|" + kStrSig + " Parameter(" + strValue + ") not found in " + strSet;
}

// The initial members with the given "name=value" words put over them.
std::string With(const std::string& strChanged) {
  std::string strText = std::string(" ") + kInitialMembers;
  for (const std::string& strWord : Words(strChanged)) {
    const size_t nName = strText.find(" " + strWord.substr(0, strWord.find('=') + 1)) + 1;
    strText.replace(nName, strText.find(' ', nName) - nName, strWord);
  }
  return strText.substr(1);
}

Lines NonEntryTraces() {
  Lines vecLines;
  for (const std::string& strLine : scripted::traces())
    if (strLine.compare(0, 2, "4|") != 0) vecLines.push_back(strLine);
  return vecLines;
}

struct GrammarCase {
  const char* name;
  Lines words;
  int nResult;
  LoggerExecMethod method;  // selected operation, nullptr for none
  bool bExitTrace;          // "[LEAVE]" of CheckParam written
  std::string changed;      // members changed from their initial values
  Lines notes;              // the trace lines other than level 4, in order
};
KTL_CASE_FIXTURE(GrammarTest, GrammarCase);

TEST_P(GrammarTest, ParsesStoresSelectsAndTraces) {
  const GrammarCase& c = GetParam();
  scripted::script().mapShowResult["MSG_CLI_ERROR_COMMAND"] = kRefused;
  CLoggerConfigCmd cmd;
  scripted::calls().clear();

  EXPECT_EQ(cmd.CheckParam(c.words), c.nResult);
  EXPECT_TRUE(pExecMethod == c.method) << "selected operation";
  const auto vecTraces = scripted::traces();
  EXPECT_EQ(vecTraces.front(), "4|[ENTER] " + kSig);
  EXPECT_EQ(std::count(vecTraces.begin(), vecTraces.end(), kLeave), c.bExitTrace ? 1 : 0);
  EXPECT_EQ(NonEntryTraces(), c.notes);
  EXPECT_EQ(scripted::shows(), c.nResult == kRefused ? Lines{"MSG_CLI_ERROR_COMMAND|0|"} : Lines{});
  EXPECT_EQ(MembersText(cmd), With(c.changed));
}

const std::string kCount = "1|" + kSig + " Parameter count error ";
typedef CLoggerConfigCmd C;

const GrammarCase kCases[] = {
    // Base grouping and the first option.
    {"grouping fails", {"on"}, kRefused, nullptr, false, "", {"16|" + kSig + " Parameter Analyze Error"}},
    {"no pairs", {}, kRefused, nullptr, false, "", {}},
    {"unknown first option, percent literal", {"-%s%n"}, kRefused, nullptr, false, "", {"16|" + kSig + " Unknown Parameter Error: -%s%n"}},
    // -syslogoutput
    {"syslog on in upper case", {"-SYSLOGOUTPUT", "ON"}, 0, &C::CmdSyslog, true, "onoff=17", {}},
    {"syslog bad value", {"-syslogoutput", "maybe"}, kRefused, nullptr, false, "", {NotFound("maybe", "on|off")}},
    {"syslog followed by save selects before counting", {"-syslogoutput", "on", "-save"}, kRefused, &C::CmdSyslog, false, "onoff=17",
     {kCount + "(exp=1, res=2)"}},
    // -alert: the first option selects in any case, but its pair is checked as typed.
    {"alert wrn off", {"-alert", "wrn", "-setting", "off"}, 0, &C::CmdAlert, false, "set=1 alert=1 onoff=16", {}},
    {"alert values in mixed case", {"-alert", "Err", "-setting", "oN"}, 0, &C::CmdAlert, false, "set=1 alert=2 onoff=17", {}},
    {"alert without setting", {"-alert", "inf"}, kRefused, nullptr, false, "set=1", {}},
    {"alert option typed in upper case", {"-ALERT", "inf", "-setting", "on"}, kRefused, nullptr, false, "set=1", {}},
    {"alert with a third pair", {"-alert", "inf", "-setting", "on", "-count", "3"}, kRefused, nullptr, false, "set=1 alert=0",
     {kCount + "(exp=2, res=3)"}},
    // -device (the limits are checked by CheckSetThreshold)
    {"device mem with values", Words("-device mem -setting on -interval 30 -threshold 80"), 0, &C::CmdDevice, false,
     "set=1 dev=1 onoff=17 int=30 thr=80", {}},
    {"device unknown", {"-device", "gpu", "-setting", "on"}, kRefused, nullptr, false, "set=1", {NotFound("gpu", "cpu|mem|disk")}},
    {"device alone", {"-device", "cpu"}, kRefused, nullptr, false, "set=1", {}},
    // -mp
    {"mount point with threshold", Words("-mp /data -setting on -threshold 90"), 0, &C::CmdMount, false, "set=1 onoff=17 thr=90 mp=/data", {}},
    {"mount point without a value", {"-mp", "-setting", "on"}, kRefused, nullptr, false, "", {}},
    {"mount point without setting", {"-mp", "/data"}, kRefused, nullptr, false, "set=1", {}},
    {"mount point taken as typed", {"-MP", "/Data", "-setting", "off"}, 0, &C::CmdMount, false, "set=1 onoff=16 mp=/Data", {}},
    // -confirm
    {"confirm alone is edit", {"-confirm"}, 0, &C::Confirm, true, "type=edit skip=1", {}},
    {"confirm CUR", {"-confirm", "CUR"}, 0, &C::Confirm, true, "type=cur skip=1", {}},
    {"confirm other word", {"-confirm", "now"}, kRefused, nullptr, false, "type=edit", {NotFound("now", "cur|edit")}},
    {"confirm with a second pair", {"-confirm", "cur", "-nochk"}, kRefused, nullptr, false, "type=cur", {kCount + "(exp=1, res=2)"}},
    // -discard and -save: "-nochk" is looked at only as the second of two pairs.
    {"discard asks", {"-discard"}, 0, &C::Discard, true, "skip=1 nochk=0", {}},
    {"discard nochk with a value", {"-discard", "-nochk", "yes"}, 0, &C::Discard, true, "skip=1 nochk=1", {}},
    {"save nochk", {"-Save", "-nochk"}, 0, &C::Save, true, "nochk=1", {}},
    {"save nochk in upper case", {"-save", "-NOCHK"}, kRefused, nullptr, false, "nochk=0", {}},
    {"save with three pairs is not examined", {"-save", "-x", "-nochk"}, 0, &C::Save, true, "nochk=0", {}},
};
INSTANTIATE_TEST_SUITE_P(Forms, GrammarTest, ::testing::ValuesIn(kCases), CaseName<GrammarCase>);

// An exception inside the handler is traced at level 8 and answered 241 with the exit trace.
TEST_F(PluginTest, CheckParamTracesAnExceptionAndAnswers241) {
  for (bool bNonStd : {false, true}) {
    scripted::reset();
    CLoggerConfigCmd cmd;
    scripted::calls().clear();
    scripted::script().strThrowIn = "Split";  // inside the value checker of "-alert"
    scripted::script().bThrowNonStd = bNonStd;
    EXPECT_EQ(cmd.CheckParam({"-alert", "inf", "-setting", "on"}), 241);
    EXPECT_EQ(cmd.m_nSettingCmd, 1) << "members written before the exception stay";
    EXPECT_TRUE(pExecMethod == nullptr);
    EXPECT_EQ(NonEntryTraces(), Lines{"8|" + kSig + (bNonStd ? " exception: Exception Information:unknown exception]"
                                                             : " Exception Information:scripted failure in Split")});
    EXPECT_EQ(scripted::traces().back(), kLeave);
    EXPECT_TRUE(scripted::shows().empty());
  }
}

TEST_F(PluginTest, CheckStrParamFindsTheLowerCasedValueInTheSet) {
  const struct {
    const char *name, *value, *allowed, *out;  // out: kUntouched when refused
  } kCases[] = {{"mixed case", "Edit", "cur|edit", "edit"},        {"last of three", "DISK", "cpu|mem|disk", "disk"},
                {"empty value", "", "cur|edit", kUntouched},        {"prefix", "edi", "cur|edit", kUntouched},
                {"longer", "edits", "cur|edit", kUntouched},        {"blank around", " on", "on|off", kUntouched},
                {"set entries keep their case", "On", "On|off", kUntouched},
                {"value traced as typed", "WRN%s", "inf|err", kUntouched}};
  CLoggerConfigCmd cmd;
  for (const auto& c : kCases) {
    scripted::calls().clear();
    std::string strOut = kUntouched;
    const bool bFound = std::string(c.out) != kUntouched;
    EXPECT_EQ(cmd.CheckStrParam(c.value, c.allowed, strOut), bFound) << c.name;
    EXPECT_EQ(strOut, c.out) << c.name;
    EXPECT_EQ(scripted::traces(), bFound ? Lines{} : Lines{NotFound(c.value, c.allowed)}) << c.name;
  }
}

TEST_F(PluginTest, CheckCommandPairNeedsTheExactOptionAndAValueOfTheSet) {
  const struct {
    const char *name, *option, *value, *expectedName, *out;
    Lines traces;  // after the entry line
  } kCases[] = {{"value case ignored", "-setting", "OFF", "-setting", "off", {}},
                {"option case counts", "-Setting", "on", "-setting", kUntouched, {kPairFalse}},
                {"other option", "-settings", "on", "-setting", kUntouched, {kPairFalse}},
                {"empty option word", "", "on", "-setting", kUntouched, {}},
                {"value not in set", "-setting", "yes", "-setting", kUntouched, {NotFound("yes", "on|off"), kPairFalse}},
                {"name written literally", "-a%sb", "on", "-a%sb", "on", {}}};
  CLoggerConfigCmd cmd;
  for (const auto& c : kCases) {
    scripted::calls().clear();
    CCommandParam param;
    param.m_strOption = c.option;
    param.m_strValue = c.value;
    std::string strOut = kUntouched;
    EXPECT_EQ(cmd.CheckCommandPair(param, c.expectedName, "on|off", strOut), std::string(c.out) != kUntouched) << c.name;
    EXPECT_EQ(strOut, c.out) << c.name;
    Lines vecTraces{"4|[ENTER] " + kPairSig + " " + c.expectedName};
    vecTraces.insert(vecTraces.end(), c.traces.begin(), c.traces.end());
    EXPECT_EQ(scripted::traces(), vecTraces) << c.name;
  }
}

// The bounds themselves are pinned by the limits cases below.
TEST_F(PluginTest, CheckIntParamAcceptsUpToFiveDigitsWithinTheBounds) {
  const struct {
    const char *name, *value;
    int min, max, out;  // out -7: refused
  } kCases[] = {{"leading zeros", "00100", 1, 100, 100}, {"five digits", "99999", 0, 1000000, 99999},
                {"six digits", "100000", 0, 1000000, -7}, {"six digits of zeros", "000001", 0, 10, -7},
                {"minus sign", "-5", -10, 10, -7},      {"leading blank", " 5", 0, 10, -7},
                {"hex", "0x10", 0, 100, -7},            {"empty within", "", 0, 10, 0},
                {"empty below", "", 1, 10, -7},         {"zero to a negative minimum", "0", -5, 0, 0}};
  CLoggerConfigCmd cmd;
  scripted::calls().clear();
  for (const auto& c : kCases) {
    int nOut = -7;
    EXPECT_EQ(cmd.CheckIntParam(c.value, c.min, c.max, nOut), c.out != -7) << c.name;
    EXPECT_EQ(nOut, c.out) << c.name;
  }
  EXPECT_TRUE(scripted::traces().empty());
}

// ---- The cross-checks against the limits file: CheckSetThreshold (device
// form) and CheckMountParam (mount-point form) ----

const std::string kDeviceSig = "bool CLoggerConfigCmd::CheckSetThreshold()";
const std::string kMountSig = "bool CLoggerConfigCmd::CheckMountParam()";

// The values a check leaves: the switch, then the numbers that are set.
std::string Values(const CLoggerConfigCmd& cmd) {
  std::string strText = cmd.m_nOnOff == 0x11 ? "on" : cmd.m_nOnOff == 0x10 ? "off" : "?";
  if (cmd.m_nInterval != -1) strText += " int=" + std::to_string(cmd.m_nInterval);
  if (cmd.m_nCount != -1) strText += " cnt=" + std::to_string(cmd.m_nCount);
  if (cmd.m_nThreshold != -1) strText += " thr=" + std::to_string(cmd.m_nThreshold);
  return strText;
}

struct LimitCase {
  const char* name;
  std::string line;  // "-device" or "-mp" form
  std::map<std::string, int> profile;
  std::string values;  // Values() afterwards
  std::string reads;   // the limits read, in order, as "SECTION/KEY/default"
  Lines failure;       // the trace lines of a refusal, "16|<check> " added to those without a level
};
KTL_CASE_FIXTURE(LimitsTest, LimitCase);

TEST_P(LimitsTest, ChecksEachOptionAgainstItsSection) {
  const LimitCase& c = GetParam();
  const Lines vecWords = Words(c.line);
  const bool bMount = vecWords[0] == "-mp";
  const std::string strSig = bMount ? kMountSig : kDeviceSig;
  scripted::script().mapProfile = c.profile;
  CLoggerConfigCmd cmd;
  // The host's base grouping and the members the grammar sets before the check.
  ASSERT_EQ(cmd.CCommand::CheckParam(vecWords), 0);
  if (!bMount) cmd.m_nDevice = vecWords[1] == "cpu" ? 0 : vecWords[1] == "mem" ? 1 : 2;
  cmd.m_nOnOff = vecWords[3] == "on" ? 0x11 : 0x10;
  if (!bMount) cmd.m_nInterval = cmd.m_nCount = cmd.m_nThreshold = 7;  // reset on entry
  scripted::calls().clear();

  EXPECT_EQ(bMount ? cmd.CheckMountParam() : cmd.CheckSetThreshold(), c.failure.empty());
  EXPECT_EQ(Values(cmd), c.values);
  EXPECT_EQ(cmd.m_strMountPoint, bMount ? vecWords[1] : "");
  Lines vecReads;
  for (const auto& call : scripted::callsOf("GetPrivateProfileIntA")) {
    EXPECT_EQ(call.vecArgs[3], "/opt/velmora/ktl/cli/LoggerParams.ini");
    vecReads.push_back(call.vecArgs[0] + "/" + call.vecArgs[1] + "/" + call.vecArgs[2]);
  }
  EXPECT_EQ(vecReads, Words(c.reads));
  Lines vecTraces{"4|[ENTER] " + strSig};
  for (const std::string& strLine : c.failure)
    vecTraces.push_back(strLine.find('|') == std::string::npos ? "16|" + strSig + " " + strLine : strLine);
  if (c.failure.empty()) vecTraces.push_back("4|[LEAVE] " + strSig);
  EXPECT_EQ(scripted::traces(), vecTraces);
}

const char kCpuThr[] = "CPU/THRESHOLD_MIN/10 CPU/THRESHOLD_MAX/100";
const char kCpuInt[] = "CPU/INTERVAL_MIN/1 CPU/INTERVAL_MAX/86400";
const char kCpuCnt[] = "CPU/COUNT_MIN/1 CPU/COUNT_MAX/1000";
const char kDiskIntCnt[] = "DISK/INTERVAL_MIN/1 DISK/INTERVAL_MAX/86400 DISK/COUNT_MIN/1 DISK/COUNT_MAX/1000";
const std::string kCpuIntCnt = std::string(kCpuInt) + " " + kCpuCnt;
const char kDiskThr[] = "DISK/THRESHOLD_MIN/40 DISK/THRESHOLD_MAX/100";
const std::map<std::string, int> kDiskFile = {{"CPU/THRESHOLD_MIN", 50}, {"DISK/THRESHOLD_MAX", 95}};
const char kOffWithValues[] = "Monitoring mode OFF, threshold value was set (3)";

INSTANTIATE_TEST_SUITE_P(
    Device, LimitsTest,
    ::testing::Values(
        LimitCase{"threshold below", "-device cpu -setting on -threshold 9", {}, "on", kCpuThr, {"Parameter Error: -threshold 9"}},
        LimitCase{"threshold minimum", "-device cpu -setting on -threshold 10", {}, "on thr=10", kCpuThr, {}},
        LimitCase{"threshold maximum", "-device cpu -setting on -threshold 100", {}, "on thr=100", kCpuThr, {}},
        LimitCase{"mem section defaults", "-device mem -setting on -threshold 39", {}, "on",
                  "MEMORY/THRESHOLD_MIN/40 MEMORY/THRESHOLD_MAX/100", {"Parameter Error: -threshold 39"}},
        LimitCase{"interval maximum", "-device mem -setting on -interval 86400", {}, "on int=86400",
                  "MEMORY/INTERVAL_MIN/1 MEMORY/INTERVAL_MAX/86400", {}},
        LimitCase{"interval above", "-device cpu -setting on -interval 86401", {}, "on", kCpuInt, {"Parameter Error: -interval 86401"}},
        LimitCase{"count above, interval kept", "-device cpu -setting on -interval 60 -count 1001", {}, "on int=60", kCpuIntCnt,
                  {"Parameter Error: -count 1001"}},
        LimitCase{"disk interval and count", "-device disk -setting on -interval 60 -count 5", {}, "on int=60 cnt=5", kDiskIntCnt, {}},
        LimitCase{"disk threshold refused", "-device disk -setting on -interval 60 -count 5 -threshold 80", {}, "on int=60 cnt=5",
                  kDiskIntCnt, {"disk can not appoint threshold option."}},
        LimitCase{"off alone", "-device cpu -setting off", {}, "off", "", {}},
        LimitCase{"off with a value", "-device cpu -setting off -interval 60", {}, "off", "", {kOffWithValues}},
        LimitCase{"file minimum refuses", "-device cpu -setting on -threshold 45", {{"CPU/THRESHOLD_MIN", 50}}, "on", kCpuThr,
                  {"Parameter Error: -threshold 45"}},
        LimitCase{"five digits under a large file maximum", "-device cpu -setting on -count 99999", {{"CPU/COUNT_MAX", 500000}},
                  "on cnt=99999", kCpuCnt, {}},
        LimitCase{"unknown option", "-device cpu -setting on -interval 5 -bogus 1", {}, "on int=5", kCpuInt,
                  {"Unknown Parameter Error: -bogus"}},
        LimitCase{"options in any case, refusal traced as typed", "-device cpu -setting on -INTERVAL 60 -Count 0", {}, "on int=60",
                  kCpuIntCnt, {"Parameter Error: -Count 0"}},
        LimitCase{"option without value", "-device cpu -setting on -threshold", {}, "on", kCpuThr, {"Parameter Error: -threshold "}}),
    CaseName<LimitCase>);

INSTANTIATE_TEST_SUITE_P(
    MountPoint, LimitsTest,
    ::testing::Values(
        LimitCase{"disk minimum, not cpu's", "-mp /data -setting on -threshold 40", kDiskFile, "on thr=40", kDiskThr, {}},
        LimitCase{"disk file maximum", "-mp /data -setting on -threshold 95", kDiskFile, "on thr=95", kDiskThr, {}},
        LimitCase{"threshold below", "-mp /data -setting on -threshold 39", {}, "on", kDiskThr, {"Parameter Error: -threshold 39"}},
        LimitCase{"threshold above", "-mp /data -setting on -threshold 96", kDiskFile, "on", kDiskThr, {"Parameter Error: -threshold 96"}},
        LimitCase{"count refused, threshold kept", "-mp /data -setting on -threshold 50 -count 5", {}, "on thr=50", kDiskThr,
                  {"Unknown Parameter Error: -count"}},
        LimitCase{"off with a threshold", "-mp /data -setting off -threshold 90", {}, "off", "", {kOffWithValues}},
        LimitCase{"off alone", "-mp /data -setting off", {}, "off", "", {}},
        LimitCase{"later setting overrides", "-mp /data -setting on -setting off", {}, "off", "", {}},
        LimitCase{"later off after a threshold", "-mp /data -setting on -threshold 90 -setting off", {}, "off thr=90", kDiskThr,
                  {"Monitoring mode OFF, threshold value was set"}},
        LimitCase{"later setting refused", "-mp /data -setting on -setting maybe", {}, "on", "",
                  {"16|bool CLoggerConfigCmd::CheckStrParam(std::string, std::string, std::string&) Parameter(maybe) not found in on|off",
                   "Parameter Error: -setting maybe"}},
        LimitCase{"options in any case, repeated threshold", "-mp /DATA%s -setting on -THRESHOLD 90 -threshold 80", {}, "on thr=80",
                  std::string(kDiskThr) + " " + kDiskThr, {}}),
    CaseName<LimitCase>);

}  // namespace
