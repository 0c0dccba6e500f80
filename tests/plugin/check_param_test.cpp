// The grammar of the "logger" command line: which words are accepted, what
// each form stores, which operation it selects, and what a refusal traces.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "tests/plugin/plugin_test_support.h"

namespace {

const std::string kSig =
    "virtual int CLoggerConfigCmd::CheckParam(std::vector<std::basic_string<char, std::char_traits<char>, "
    "std::allocator<char> >, std::allocator<std::basic_string<char, std::char_traits<char>, std::allocator<char> > > "
    ">)";
const std::string kLeave = "4|[LEAVE] " + kSig;
const int kRefused = 99;  // what show answers for MSG_CLI_ERROR_COMMAND here

// The members a form may write; the defaults are the initial values.
struct Members {
  int nSettingCmd = 0;
  int nOnOff = -1;
  int nNoCheck = -1;
  int nDevice = -1;
  int nAlertLevel = -1;
  int nInterval = -1;
  int nCount = -1;
  int nThreshold = -1;
  bool bSkipProcessCheck = false;
  std::string strConfirmType;
  std::string strMountPoint;
};

Members With(std::function<void(Members&)> set) {
  Members members;
  set(members);
  return members;
}

struct GrammarCase {
  const char* name;
  std::vector<std::string> words;
  int nResult;
  LoggerExecMethod method;          // selected operation, nullptr for none
  bool bExitTrace;                  // "[LEAVE]" of CheckParam written
  Members members;
  std::vector<std::string> notes;   // the trace lines below level 4 and above it, in order
};
KTL_PRINT_CASE_BY_NAME(GrammarCase)

class GrammarTest : public PluginTest, public ::testing::WithParamInterface<GrammarCase> {};

std::vector<std::string> NonEntryTraces() {
  std::vector<std::string> vecLines;
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
  EXPECT_EQ(scripted::shows(), c.nResult == kRefused ? std::vector<std::string>{"MSG_CLI_ERROR_COMMAND|0|"}
                                                     : std::vector<std::string>{});

  EXPECT_EQ(cmd.m_nSettingCmd, c.members.nSettingCmd);
  EXPECT_EQ(cmd.m_nOnOff, c.members.nOnOff);
  EXPECT_EQ(cmd.m_nNoCheck, c.members.nNoCheck);
  EXPECT_EQ(cmd.m_nDevice, c.members.nDevice);
  EXPECT_EQ(cmd.m_nAlertLevel, c.members.nAlertLevel);
  EXPECT_EQ(cmd.m_nInterval, c.members.nInterval);
  EXPECT_EQ(cmd.m_nCount, c.members.nCount);
  EXPECT_EQ(cmd.m_nThreshold, c.members.nThreshold);
  EXPECT_EQ(cmd.m_bSkipProcessCheck, c.members.bSkipProcessCheck);
  EXPECT_EQ(cmd.m_strConfirmType, c.members.strConfirmType);
  EXPECT_EQ(cmd.m_strMountPoint, c.members.strMountPoint);
}

const std::string kCount = "1|" + kSig + " Parameter count error ";
const std::string kNotFound = "16|bool CLoggerConfigCmd::CheckStrParam(std::string, std::string, std::string&) ";

const GrammarCase kCases[] = {
    // Base grouping and the first option.
    {"grouping fails", {"on"}, kRefused, nullptr, false, {}, {"16|" + kSig + " Parameter Analyze Error"}},
    {"no pairs", {}, kRefused, nullptr, false, {}, {}},
    {"unknown first option", {"-Bogus", "x"}, kRefused, nullptr, false, {}, {"16|" + kSig + " Unknown Parameter Error: -Bogus"}},
    {"percent in an unknown option is literal", {"-%s%n"}, kRefused, nullptr, false, {}, {"16|" + kSig + " Unknown Parameter Error: -%s%n"}},

    // -syslogoutput
    {"syslog on in upper case", {"-SYSLOGOUTPUT", "ON"}, 0, &CLoggerConfigCmd::CmdSyslog, true,
     With([](Members& m) { m.nOnOff = 0x11; }), {}},
    {"syslog off", {"-syslogoutput", "off"}, 0, &CLoggerConfigCmd::CmdSyslog, true, With([](Members& m) { m.nOnOff = 0x10; }), {}},
    {"syslog bad value", {"-syslogoutput", "maybe"}, kRefused, nullptr, false, {}, {kNotFound + "Parameter(maybe) not found in on|off"}},
    {"syslog followed by save selects before counting", {"-syslogoutput", "on", "-save"}, kRefused,
     &CLoggerConfigCmd::CmdSyslog, false, With([](Members& m) { m.nOnOff = 0x11; }), {kCount + "(exp=1, res=2)"}},

    // -alert
    {"alert wrn off", {"-alert", "wrn", "-setting", "off"}, 0, &CLoggerConfigCmd::CmdAlert, false,
     With([](Members& m) { m.nSettingCmd = 1; m.nAlertLevel = 1; m.nOnOff = 0x10; }), {}},
    {"alert values in mixed case", {"-alert", "Err", "-setting", "oN"}, 0, &CLoggerConfigCmd::CmdAlert, false,
     With([](Members& m) { m.nSettingCmd = 1; m.nAlertLevel = 2; m.nOnOff = 0x11; }), {}},
    {"alert without setting", {"-alert", "inf"}, kRefused, nullptr, false, With([](Members& m) { m.nSettingCmd = 1; }), {}},
    {"alert option typed in upper case", {"-ALERT", "inf", "-setting", "on"}, kRefused, nullptr, false,
     With([](Members& m) { m.nSettingCmd = 1; }), {}},
    {"alert setting typed in upper case", {"-alert", "inf", "-SETTING", "on"}, kRefused, nullptr, false,
     With([](Members& m) { m.nSettingCmd = 1; m.nAlertLevel = 0; }), {}},
    {"alert with a third pair", {"-alert", "inf", "-setting", "on", "-count", "3"}, kRefused, nullptr, false,
     With([](Members& m) { m.nSettingCmd = 1; m.nAlertLevel = 0; }), {kCount + "(exp=2, res=3)"}},

    // -device
    {"device mem with values", {"-device", "mem", "-setting", "on", "-interval", "30", "-threshold", "80"}, 0,
     &CLoggerConfigCmd::CmdDevice, false,
     With([](Members& m) { m.nSettingCmd = 1; m.nDevice = 1; m.nOnOff = 0x11; m.nInterval = 30; m.nThreshold = 80; }), {}},
    {"device disk refuses a threshold", {"-device", "disk", "-setting", "on", "-threshold", "80"}, kRefused, nullptr,
     false, With([](Members& m) { m.nSettingCmd = 1; m.nDevice = 2; m.nOnOff = 0x11; }),
     {"16|bool CLoggerConfigCmd::CheckSetThreshold() disk can not appoint threshold option."}},
    {"device unknown", {"-device", "gpu", "-setting", "on"}, kRefused, nullptr, false,
     With([](Members& m) { m.nSettingCmd = 1; }), {kNotFound + "Parameter(gpu) not found in cpu|mem|disk"}},
    {"device alone", {"-device", "cpu"}, kRefused, nullptr, false, With([](Members& m) { m.nSettingCmd = 1; }), {}},

    // -mp
    {"mount point with threshold", {"-mp", "/data", "-setting", "on", "-threshold", "90"}, 0, &CLoggerConfigCmd::CmdMount,
     false, With([](Members& m) { m.nSettingCmd = 1; m.nOnOff = 0x11; m.nThreshold = 90; m.strMountPoint = "/data"; }), {}},
    {"mount point without a value", {"-mp", "-setting", "on"}, kRefused, nullptr, false, {}, {}},
    {"mount point without setting", {"-mp", "/data"}, kRefused, nullptr, false, With([](Members& m) { m.nSettingCmd = 1; }), {}},
    {"mount point taken as typed", {"-MP", "/Data", "-setting", "off"}, 0, &CLoggerConfigCmd::CmdMount, false,
     With([](Members& m) { m.nSettingCmd = 1; m.nOnOff = 0x10; m.strMountPoint = "/Data"; }), {}},

    // -confirm
    {"confirm alone is edit", {"-confirm"}, 0, &CLoggerConfigCmd::Confirm, true,
     With([](Members& m) { m.strConfirmType = "edit"; m.bSkipProcessCheck = true; }), {}},
    {"confirm CUR", {"-confirm", "CUR"}, 0, &CLoggerConfigCmd::Confirm, true,
     With([](Members& m) { m.strConfirmType = "cur"; m.bSkipProcessCheck = true; }), {}},
    {"confirm other word", {"-confirm", "now"}, kRefused, nullptr, false, With([](Members& m) { m.strConfirmType = "edit"; }),
     {kNotFound + "Parameter(now) not found in cur|edit"}},
    {"confirm with a second pair", {"-confirm", "cur", "-nochk"}, kRefused, nullptr, false,
     With([](Members& m) { m.strConfirmType = "cur"; }), {kCount + "(exp=1, res=2)"}},

    // -discard and -save
    {"discard asks", {"-discard"}, 0, &CLoggerConfigCmd::Discard, true,
     With([](Members& m) { m.bSkipProcessCheck = true; m.nNoCheck = 0; }), {}},
    {"discard nochk with a value", {"-discard", "-nochk", "yes"}, 0, &CLoggerConfigCmd::Discard, true,
     With([](Members& m) { m.bSkipProcessCheck = true; m.nNoCheck = 1; }), {}},
    {"discard other second option", {"-discard", "-force"}, kRefused, nullptr, false,
     With([](Members& m) { m.bSkipProcessCheck = true; m.nNoCheck = 0; }), {}},
    {"save nochk", {"-Save", "-nochk"}, 0, &CLoggerConfigCmd::Save, true, With([](Members& m) { m.nNoCheck = 1; }), {}},
    {"save nochk in upper case", {"-save", "-NOCHK"}, kRefused, nullptr, false, With([](Members& m) { m.nNoCheck = 0; }), {}},
    {"save with three pairs is not examined", {"-save", "-x", "-nochk"}, 0, &CLoggerConfigCmd::Save, true,
     With([](Members& m) { m.nNoCheck = 0; }), {}},
};

INSTANTIATE_TEST_SUITE_P(Forms, GrammarTest, ::testing::ValuesIn(kCases), CaseName<GrammarCase>);

// Exceptions inside the handler: traced at level 8, exit trace, 241.
struct ExceptionCase {
  const char* name;
  bool bNonStd;
  std::string strNote;
};
KTL_PRINT_CASE_BY_NAME(ExceptionCase)

class GrammarExceptionTest : public PluginTest, public ::testing::WithParamInterface<ExceptionCase> {};

TEST_P(GrammarExceptionTest, AnExceptionIsTracedAndAnswered241) {
  const ExceptionCase& c = GetParam();
  CLoggerConfigCmd cmd;
  scripted::calls().clear();
  scripted::script().strThrowIn = "Split";  // inside the value checker of "-alert"
  scripted::script().bThrowNonStd = c.bNonStd;
  EXPECT_EQ(cmd.CheckParam({"-alert", "inf", "-setting", "on"}), 241);
  EXPECT_EQ(cmd.m_nSettingCmd, 1) << "members written before the exception stay";
  EXPECT_TRUE(pExecMethod == nullptr);
  EXPECT_EQ(NonEntryTraces(), std::vector<std::string>{c.strNote});
  EXPECT_EQ(scripted::traces().back(), kLeave);
  EXPECT_TRUE(scripted::shows().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Handler, GrammarExceptionTest,
    ::testing::Values(ExceptionCase{"std exception", false, "8|" + kSig + " Exception Information:scripted failure in Split"},
                      ExceptionCase{"other exception", true,
                                    "8|" + kSig + " exception: Exception Information:unknown exception]"}),
    CaseName<ExceptionCase>);

}  // namespace
