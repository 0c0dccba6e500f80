// The grammar of the "logger" command line: which words are accepted, what
// each form stores, which operation it selects, and what a refusal traces.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <stdexcept>

#include "tests/plugin/plugin_test_support.h"

namespace {

const std::string kSig =
    "virtual int CLoggerConfigCmd::CheckParam(std::vector<std::basic_string<char, std::char_traits<char>, "
    "std::allocator<char> >, std::allocator<std::basic_string<char, std::char_traits<char>, std::allocator<char> > > "
    ">)";
const std::string kLeave = "4|[LEAVE] " + kSig;
const int kRefused = 99;  // what show answers for MSG_CLI_ERROR_COMMAND here

// The initial members with the given "name=value" words put over them.
std::string With(const std::string& strChanged) {
  std::map<std::string, std::string> mapValues;
  Lines vecOrder;
  for (const std::string& strWord : Words(std::string(kInitialMembers) + " " + strChanged)) {
    const std::string strName = strWord.substr(0, strWord.find('='));
    if (!mapValues.count(strName)) vecOrder.push_back(strName);
    mapValues[strName] = strWord.substr(strWord.find('=') + 1);
  }
  std::string strText;
  for (const std::string& strName : vecOrder) strText += (strText.empty() ? "" : " ") + strName + "=" + mapValues[strName];
  return strText;
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

Lines NonEntryTraces() {
  Lines vecLines;
  for (const std::string& strLine : scripted::traces())
    if (strLine.compare(0, 2, "4|") != 0) vecLines.push_back(strLine);
  return vecLines;
}

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
const std::string kNotFound = "16|bool CLoggerConfigCmd::CheckStrParam(std::string, std::string, std::string&) ";
typedef CLoggerConfigCmd C;

const GrammarCase kCases[] = {
    // Base grouping and the first option.
    {"grouping fails", {"on"}, kRefused, nullptr, false, "", {"16|" + kSig + " Parameter Analyze Error"}},
    {"no pairs", {}, kRefused, nullptr, false, "", {}},
    {"unknown first option, percent literal", {"-%s%n"}, kRefused, nullptr, false, "", {"16|" + kSig + " Unknown Parameter Error: -%s%n"}},
    // -syslogoutput
    {"syslog on in upper case", {"-SYSLOGOUTPUT", "ON"}, 0, &C::CmdSyslog, true, "onoff=17", {}},
    {"syslog off", {"-syslogoutput", "off"}, 0, &C::CmdSyslog, true, "onoff=16", {}},
    {"syslog bad value", {"-syslogoutput", "maybe"}, kRefused, nullptr, false, "", {kNotFound + "Parameter(maybe) not found in on|off"}},
    {"syslog followed by save selects before counting", {"-syslogoutput", "on", "-save"}, kRefused, &C::CmdSyslog, false, "onoff=17",
     {kCount + "(exp=1, res=2)"}},
    // -alert
    {"alert wrn off", {"-alert", "wrn", "-setting", "off"}, 0, &C::CmdAlert, false, "set=1 alert=1 onoff=16", {}},
    {"alert values in mixed case", {"-alert", "Err", "-setting", "oN"}, 0, &C::CmdAlert, false, "set=1 alert=2 onoff=17", {}},
    {"alert without setting", {"-alert", "inf"}, kRefused, nullptr, false, "set=1", {}},
    {"alert option typed in upper case", {"-ALERT", "inf", "-setting", "on"}, kRefused, nullptr, false, "set=1", {}},
    {"alert setting typed in upper case", {"-alert", "inf", "-SETTING", "on"}, kRefused, nullptr, false, "set=1 alert=0", {}},
    {"alert with a third pair", {"-alert", "inf", "-setting", "on", "-count", "3"}, kRefused, nullptr, false, "set=1 alert=0",
     {kCount + "(exp=2, res=3)"}},
    // -device (the limits are checked by CheckSetThreshold)
    {"device mem with values", Words("-device mem -setting on -interval 30 -threshold 80"), 0, &C::CmdDevice, false,
     "set=1 dev=1 onoff=17 int=30 thr=80", {}},
    {"device unknown", {"-device", "gpu", "-setting", "on"}, kRefused, nullptr, false, "set=1", {kNotFound + "Parameter(gpu) not found in cpu|mem|disk"}},
    {"device alone", {"-device", "cpu"}, kRefused, nullptr, false, "set=1", {}},
    // -mp
    {"mount point with threshold", Words("-mp /data -setting on -threshold 90"), 0, &C::CmdMount, false, "set=1 onoff=17 thr=90 mp=/data", {}},
    {"mount point without a value", {"-mp", "-setting", "on"}, kRefused, nullptr, false, "", {}},
    {"mount point without setting", {"-mp", "/data"}, kRefused, nullptr, false, "set=1", {}},
    {"mount point taken as typed", {"-MP", "/Data", "-setting", "off"}, 0, &C::CmdMount, false, "set=1 onoff=16 mp=/Data", {}},
    // -confirm
    {"confirm alone is edit", {"-confirm"}, 0, &C::Confirm, true, "type=edit skip=1", {}},
    {"confirm CUR", {"-confirm", "CUR"}, 0, &C::Confirm, true, "type=cur skip=1", {}},
    {"confirm other word", {"-confirm", "now"}, kRefused, nullptr, false, "type=edit", {kNotFound + "Parameter(now) not found in cur|edit"}},
    {"confirm with a second pair", {"-confirm", "cur", "-nochk"}, kRefused, nullptr, false, "type=cur", {kCount + "(exp=1, res=2)"}},
    // -discard and -save
    {"discard asks", {"-discard"}, 0, &C::Discard, true, "skip=1 nochk=0", {}},
    {"discard nochk with a value", {"-discard", "-nochk", "yes"}, 0, &C::Discard, true, "skip=1 nochk=1", {}},
    {"discard other second option", {"-discard", "-force"}, kRefused, nullptr, false, "skip=1 nochk=0", {}},
    {"save nochk", {"-Save", "-nochk"}, 0, &C::Save, true, "nochk=1", {}},
    {"save nochk in upper case", {"-save", "-NOCHK"}, kRefused, nullptr, false, "nochk=0", {}},
    {"save with three pairs is not examined", {"-save", "-x", "-nochk"}, 0, &C::Save, true, "nochk=0", {}},
};

INSTANTIATE_TEST_SUITE_P(Forms, GrammarTest, ::testing::ValuesIn(kCases), CaseName<GrammarCase>);

// Exceptions inside the handler: traced at level 8, exit trace, 241.
class GrammarExceptionTest : public PluginTest {};

TEST_F(GrammarExceptionTest, AnExceptionIsTracedAndAnswered241) {
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

}  // namespace
