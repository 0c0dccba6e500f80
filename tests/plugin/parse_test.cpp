// The parser: the grammar of the "logger" command line and the cross-checks
// of the numeric options against the limits file, driven through CheckParam
// (what is accepted, what each form stores, which operation it selects, which
// limits it reads, what a refusal traces).
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "tests/plugin/plugin_test_support.h"

namespace {

const std::string kSig =
    "virtual int CLoggerConfigCmd::CheckParam(std::vector<std::basic_string<char, std::char_traits<char>, "
    "std::allocator<char> >, std::allocator<std::basic_string<char, std::char_traits<char>, std::allocator<char> > > "
    ">)";
const std::string kThr = "bool CLoggerConfigCmd::CheckSetThreshold()";
const std::string kMp = "bool CLoggerConfigCmd::CheckMountParam()";
const std::string kPairSig = "bool CLoggerConfigCmd::CheckCommandPair(CCommandParam, std::string, std::string, std::string&)";
const std::string kLeave = "4|[LEAVE] " + kSig;
const std::string kLeaveThr = "4|[LEAVE] " + kThr;
const std::string kLeaveMp = "4|[LEAVE] " + kMp;
const std::string kPairFalse = "4|[LEAVE] " + kPairSig + ", rc=FALSE";
const int kRefused = 99;  // what show answers for MSG_CLI_ERROR_COMMAND here

// A rejected parameter as a check traces it (level 16).
std::string Why(const std::string& strSig, const std::string& strText) { return "16|" + strSig + " " + strText; }
std::string NotFound(const std::string& strValue, const std::string& strSet) {
  return Why("bool CLoggerConfigCmd::CheckStrParam(std::string, std::string, std::string&)",
             "Parameter(" + strValue + ") not found in " + strSet);
}
std::string Count(int nExpected, int nGiven) {
  return "1|" + kSig + " Parameter count error (exp=" + std::to_string(nExpected) + ", res=" + std::to_string(nGiven) + ")";
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

struct ParseCase {
  const char* name;
  std::string line;                    // the words after "logger"
  std::map<std::string, int> profile;  // the limits file: "SECTION/KEY" -> value
  int nResult;
  LoggerExecMethod method;  // selected operation, nullptr for none
  std::string changed;      // members changed from their initial values
  std::string reads;        // the limits read, in order, as "SECTION/KEY/default"
  Lines traces;             // every trace line but the entry lines, in order
};
KTL_CASE_FIXTURE(ParseTest, ParseCase);

TEST_P(ParseTest, ChecksStoresSelectsAndTraces) {
  const ParseCase& c = GetParam();
  scripted::script().mapProfile = c.profile;
  scripted::script().mapShowResult["MSG_CLI_ERROR_COMMAND"] = kRefused;
  CLoggerConfigCmd cmd;
  scripted::calls().clear();

  EXPECT_EQ(cmd.CheckParam(Words(c.line)), c.nResult);
  EXPECT_TRUE(pExecMethod == c.method) << "selected operation";
  EXPECT_EQ(MembersText(cmd), With(c.changed));
  EXPECT_EQ(scripted::shows(), c.nResult == kRefused ? Lines{"MSG_CLI_ERROR_COMMAND|0|"} : Lines{});
  Lines vecReads;
  for (const auto& call : scripted::callsOf("GetPrivateProfileIntA")) {
    EXPECT_EQ(call.vecArgs[3], "/opt/velmora/ktl/cli/LoggerParams.ini");
    vecReads.push_back(call.vecArgs[0] + "/" + call.vecArgs[1] + "/" + call.vecArgs[2]);
  }
  EXPECT_EQ(vecReads, Words(c.reads));
  // The entry lines are checked here, not in the rows: CheckParam's first,
  // and one before each exit line of the same operation.
  const Lines vecAll = scripted::traces();
  EXPECT_EQ(vecAll.front(), "4|[ENTER] " + kSig);
  Lines vecTraces;
  for (auto it = vecAll.begin(); it != vecAll.end(); ++it) {
    if (it->rfind("4|[ENTER] ", 0) == 0) continue;
    vecTraces.push_back(*it);
    if (it->rfind("4|[LEAVE] ", 0) != 0) continue;
    const std::string strEnter = "4|[ENTER] " + it->substr(10, it->find(", rc=") - 10);
    EXPECT_TRUE(std::any_of(vecAll.begin(), it, [&](const std::string& s) { return s.rfind(strEnter, 0) == 0; })) << *it;
  }
  EXPECT_EQ(vecTraces, c.traces);
}

typedef CLoggerConfigCmd C;
const char kCpuThr[] = "CPU/THRESHOLD_MIN/10 CPU/THRESHOLD_MAX/100";
const char kCpuInt[] = "CPU/INTERVAL_MIN/1 CPU/INTERVAL_MAX/86400";
const std::string kCpuIntCnt = std::string(kCpuInt) + " CPU/COUNT_MIN/1 CPU/COUNT_MAX/1000";
const char kDiskThr[] = "DISK/THRESHOLD_MIN/40 DISK/THRESHOLD_MAX/100";
const std::map<std::string, int> kDiskFile = {{"CPU/THRESHOLD_MIN", 50}, {"DISK/THRESHOLD_MAX", 95}};
const char kOffWithValues[] = "Monitoring mode OFF, threshold value was set (3)";

const ParseCase kGrammar[] = {
    {"grouping fails", "on", {}, kRefused, nullptr, "", "", {Why(kSig, "Parameter Analyze Error")}},
    {"no pairs", "", {}, kRefused, nullptr, "", "", {}},
    {"unknown first option as typed", "-%s%n", {}, kRefused, nullptr, "", "", {Why(kSig, "Unknown Parameter Error: -%s%n")}},
    {"syslog ON in upper case", "-SYSLOGOUTPUT ON", {}, 0, &C::CmdSyslog, "onoff=17", "", {kLeave}},
    {"syslog then save: selected, then counted", "-syslogoutput on -save", {}, kRefused, &C::CmdSyslog, "onoff=17", "", {Count(1, 2)}},
    {"alert values in any case", "-alert WRN -setting Off", {}, 0, &C::CmdAlert, "set=1 alert=1 onoff=16", "", {}},
    {"alert without setting", "-alert inf", {}, kRefused, nullptr, "set=1", "", {}},
    {"alert option word checked as typed", "-ALERT inf -setting on", {}, kRefused, nullptr, "set=1", "", {kPairFalse}},
    {"alert with a third pair", "-alert inf -setting on -count 3", {}, kRefused, nullptr, "set=1 alert=0", "", {Count(2, 3)}},
    {"device without setting", "-device cpu", {}, kRefused, nullptr, "set=1", "", {}},
    {"device gpu", "-device gpu -setting on", {}, kRefused, nullptr, "set=1", "", {NotFound("gpu", "cpu|mem|disk"), kPairFalse}},
    {"mount point without a value", "-mp -setting on", {}, kRefused, nullptr, "", "", {}},
    {"mount point without setting", "-mp /data", {}, kRefused, nullptr, "set=1", "", {}},
    {"confirm alone is edit", "-confirm", {}, 0, &C::Confirm, "type=edit skip=1", "", {kLeave}},
    {"confirm CUR", "-confirm CUR", {}, 0, &C::Confirm, "type=cur skip=1", "", {kLeave}},
    {"confirm prefix refused, traced as typed", "-confirm EDI", {}, kRefused, nullptr, "type=edit", "", {NotFound("EDI", "cur|edit")}},
    {"discard asks", "-discard", {}, 0, &C::Discard, "skip=1 nochk=0", "", {kLeave}},
    {"save nochk", "-Save -nochk", {}, 0, &C::Save, "nochk=1", "", {kLeave}},
    {"save nochk in upper case", "-save -NOCHK", {}, kRefused, nullptr, "nochk=0", "", {}},
    {"save with three pairs is not examined", "-save -x -nochk", {}, 0, &C::Save, "nochk=0", "", {kLeave}},
};
INSTANTIATE_TEST_SUITE_P(Forms, ParseTest, ::testing::ValuesIn(kGrammar), CaseName<ParseCase>);

// Each limit is read from the file with its built-in default; values
// accepted before a refusal stay in their members.
const ParseCase kLimits[] = {
    {"cpu options at their bounds, leading zeros", "-device cpu -setting on -interval 1 -count 01000 -threshold 10", {}, 0, &C::CmdDevice,
     "set=1 dev=0 onoff=17 int=1 cnt=1000 thr=10", kCpuIntCnt + " " + kCpuThr, {kLeaveThr}},
    {"cpu threshold below", "-device cpu -setting on -threshold 9", {}, kRefused, nullptr, "set=1 dev=0 onoff=17", kCpuThr,
     {Why(kThr, "Parameter Error: -threshold 9")}},
    {"mem interval maximum, threshold below", "-device mem -setting on -interval 86400 -threshold 39", {}, kRefused, nullptr,
     "set=1 dev=1 onoff=17 int=86400", "MEMORY/INTERVAL_MIN/1 MEMORY/INTERVAL_MAX/86400 MEMORY/THRESHOLD_MIN/40 MEMORY/THRESHOLD_MAX/100",
     {Why(kThr, "Parameter Error: -threshold 39")}},
    {"six digits, options in any case", "-device cpu -setting on -INTERVAL 60 -Count 000999", {}, kRefused, nullptr,
     "set=1 dev=0 onoff=17 int=60", kCpuIntCnt, {Why(kThr, "Parameter Error: -Count 000999")}},
    {"a letter in a number", "-device mem -setting on -count 5O", {}, kRefused, nullptr, "set=1 dev=1 onoff=17",
     "MEMORY/COUNT_MIN/1 MEMORY/COUNT_MAX/1000", {Why(kThr, "Parameter Error: -count 5O")}},
    {"disk takes no threshold", "-device disk -setting on -interval 60 -count 5 -threshold 80", {}, kRefused, nullptr,
     "set=1 dev=2 onoff=17 int=60 cnt=5", "DISK/INTERVAL_MIN/1 DISK/INTERVAL_MAX/86400 DISK/COUNT_MIN/1 DISK/COUNT_MAX/1000",
     {Why(kThr, "disk can not appoint threshold option.")}},
    {"device off alone", "-device cpu -setting off", {}, 0, &C::CmdDevice, "set=1 dev=0 onoff=16", "", {kLeaveThr}},
    {"device off with a value", "-device cpu -setting off -interval 60", {}, kRefused, nullptr, "set=1 dev=0 onoff=16", "",
     {Why(kThr, kOffWithValues)}},
    {"device unknown option", "-device cpu -setting on -interval 5 -bogus 1", {}, kRefused, nullptr, "set=1 dev=0 onoff=17 int=5",
     kCpuInt, {Why(kThr, "Unknown Parameter Error: -bogus")}},
    {"disk limits, not cpu's", "-mp /data -setting on -threshold 40", kDiskFile, 0, &C::CmdMount, "set=1 onoff=17 thr=40 mp=/data",
     kDiskThr, {kLeaveMp}},
    {"above the file's disk maximum", "-mp /data -setting on -threshold 96", kDiskFile, kRefused, nullptr, "set=1 onoff=17 mp=/data",
     kDiskThr, {Why(kMp, "Parameter Error: -threshold 96")}},
    {"mount point count is unknown", "-mp /data -setting on -threshold 50 -count 5", {}, kRefused, nullptr,
     "set=1 onoff=17 thr=50 mp=/data", kDiskThr, {Why(kMp, "Unknown Parameter Error: -count")}},
    {"mount point off with a threshold", "-mp /data -setting off -threshold 90", {}, kRefused, nullptr, "set=1 onoff=16 mp=/data", "",
     {Why(kMp, kOffWithValues)}},
    {"mount point off alone, taken as typed", "-MP /Data -setting off", {}, 0, &C::CmdMount, "set=1 onoff=16 mp=/Data", "", {kLeaveMp}},
    {"later off after a threshold", "-mp /data -setting on -threshold 90 -setting off", {}, kRefused, nullptr,
     "set=1 onoff=16 thr=90 mp=/data", kDiskThr, {Why(kMp, "Monitoring mode OFF, threshold value was set")}},
};
INSTANTIATE_TEST_SUITE_P(Limits, ParseTest, ::testing::ValuesIn(kLimits), CaseName<ParseCase>);

// An exception inside the handler is traced at level 8 and answered 241 with the exit trace.
TEST_F(PluginTest, CheckParamTracesAnExceptionAndAnswers241) {
  for (bool bNonStd : {false, true}) {
    scripted::reset();
    CLoggerConfigCmd cmd;
    scripted::script().strThrowIn = "Split";  // inside the value checker of "-alert"
    scripted::script().bThrowNonStd = bNonStd;
    EXPECT_EQ(cmd.CheckParam({"-alert", "inf", "-setting", "on"}), 241);
    EXPECT_EQ(cmd.m_nSettingCmd, 1) << "members written before the exception stay";
    EXPECT_TRUE(scripted::shows().empty());
    const Lines vecTraces = scripted::traces();
    EXPECT_EQ(vecTraces.end()[-2], "8|" + kSig + (bNonStd ? " exception: Exception Information:unknown exception]"
                                                          : " Exception Information:scripted failure in Split"));
    EXPECT_EQ(vecTraces.back(), kLeave);
  }
}

// The exit trace of an accepted form is a step under the handler too: when
// writing it throws, the level-8 trace and the exit trace follow.
TEST_F(PluginTest, CheckParamCatchesAnExceptionFromItsExitTrace) {
  for (const char* pszLine : {"-syslogoutput on", "-confirm", "-discard", "-save -nochk"}) {
    scripted::reset();
    CLoggerConfigCmd cmd;
    scripted::script().strThrowOnTrace = kLeave.substr(2);
    EXPECT_EQ(cmd.CheckParam(Words(pszLine)), 241) << pszLine;
    const Lines vecTraces = scripted::traces();
    ASSERT_GE(vecTraces.size(), 2u) << pszLine;
    EXPECT_EQ(vecTraces.end()[-2], "8|" + kSig + " Exception Information:scripted failure in WriteDebug") << pszLine;
    EXPECT_EQ(vecTraces.back(), kLeave) << pszLine;
  }
}

}  // namespace
