// Shared set-up of the plug-in's tests: a fresh script for each test, an
// empty operation selector, and helpers to build records and read calls.
#ifndef KTL_TESTS_PLUGIN_TEST_SUPPORT_H
#define KTL_TESTS_PLUGIN_TEST_SUPPORT_H

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "plugin/logger_config_cmd.h"
#include "tests/scripted_host/scripted_host.h"
#include "tests/support/case_name.h"
#include "tests/support/records.h"

class PluginTest : public ::testing::Test {
 protected:
  void SetUp() override {
    scripted::reset();
    pExecMethod = nullptr;
  }
  void TearDown() override { scripted::reset(); }
};

using ktl_test::CaseName;

// A parameterised fixture over Case, whose cases print by their name.
#define KTL_CASE_FIXTURE(Fixture, Case)                                         \
  inline void PrintTo(const Case& c, std::ostream* os) { *os << c.name; }      \
  class Fixture : public PluginTest, public ::testing::WithParamInterface<Case> {}

typedef std::vector<std::string> Lines;

// The messages as scripted::shows() records them.
const char kAppError[] = "MSG_CLI_ERROR_APPLICATION|4278190081|";
const char kHold[] = "MSG_CLI_HOLD_PARAM|0|";
const char kNotInstalled[] = "MSG_CLI_LOGGER_INSTALL|0|";

using ktl_test::FsEntry;
using ktl_test::Monitor;

// The mount points of a list, in order, as "mount:threshold:available:index".
inline Lines Describe(const std::vector<Velmora_LoggerFsThresholdConf>& vecEntries) {
  Lines vecText;
  for (const auto& entry : vecEntries)
    vecText.push_back(entry.strMount + ":" + std::to_string(entry.nThreshold) + ":" +
                      std::to_string(entry.nAvailable) + ":" + std::to_string(entry.nIndex));
  return vecText;
}

// The blank-separated words of a text: command lines and compact expectations.
inline Lines Words(const std::string& strText) {
  std::istringstream in(strText);
  Lines vecWords;
  for (std::string strWord; in >> strWord;) vecWords.push_back(strWord);
  return vecWords;
}

// The WriteString calls as "Section/Key=value".
inline Lines Writes() {
  Lines vecWrites;
  for (const scripted::HostCall& call : scripted::callsOf("WriteString"))
    vecWrites.push_back(call.vecArgs[0] + "/" + call.vecArgs[1] + "=" + call.vecArgs[2]);
  return vecWrites;
}

// The members the grammar writes, as "name=value" words in a fixed order.
inline std::string MembersText(const CLoggerConfigCmd& cmd) {
  return "set=" + std::to_string(cmd.m_nSettingCmd) + " onoff=" + std::to_string(cmd.m_nOnOff) +
         " nochk=" + std::to_string(cmd.m_nNoCheck) + " dev=" + std::to_string(cmd.m_nDevice) +
         " alert=" + std::to_string(cmd.m_nAlertLevel) + " int=" + std::to_string(cmd.m_nInterval) +
         " cnt=" + std::to_string(cmd.m_nCount) + " thr=" + std::to_string(cmd.m_nThreshold) +
         " skip=" + std::to_string(cmd.m_bSkipProcessCheck) + " type=" + cmd.m_strConfirmType +
         " mp=" + cmd.m_strMountPoint;
}
const char kInitialMembers[] = "set=0 onoff=-1 nochk=-1 dev=-1 alert=-1 int=-1 cnt=-1 thr=-1 skip=0 type= mp=";

#endif
