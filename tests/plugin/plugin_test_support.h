// Shared set-up of the plug-in's tests: a fresh script for each test, an
// empty operation selector, and helpers to build records.
#ifndef KTL_TESTS_PLUGIN_TEST_SUPPORT_H
#define KTL_TESTS_PLUGIN_TEST_SUPPORT_H

#include <gtest/gtest.h>

#include <cctype>
#include <ostream>
#include <string>
#include <vector>

#include "plugin/logger_config_cmd.h"
#include "tests/scripted_host/scripted_host.h"

class PluginTest : public ::testing::Test {
 protected:
  void SetUp() override {
    scripted::reset();
    pExecMethod = nullptr;
  }
  void TearDown() override { scripted::reset(); }
};

// Names a parameterised case after its "name" field, e.g. "pending on" ->
// "PendingOn", so that test lists and failures say which case it is.
template <typename Case>
std::string CaseName(const ::testing::TestParamInfo<Case>& info) {
  std::string strName;
  bool bUpper = true;
  for (const char* p = info.param.name; *p; ++p) {
    if (std::isalnum(static_cast<unsigned char>(*p))) {
      strName += bUpper ? static_cast<char>(std::toupper(static_cast<unsigned char>(*p))) : *p;
      bUpper = false;
    } else {
      bUpper = true;
    }
  }
  return strName + "_" + std::to_string(info.index);
}

// Prints a case by its name in gtest's messages and test lists.
#define KTL_PRINT_CASE_BY_NAME(Case) \
  inline void PrintTo(const Case& c, std::ostream* os) { *os << c.name; }

inline Velmora_LoggerFsThresholdConf FsEntry(int nIndex, int nThreshold, int nAvailable, const std::string& strMount) {
  Velmora_LoggerFsThresholdConf entry;
  entry.nIndex = nIndex;
  entry.nThreshold = nThreshold;
  entry.nAvailable = nAvailable;
  entry.strMount = strMount;
  return entry;
}

inline Velmora_LoggerUsageMonitorConf Monitor(int nAvailable, int nInterval, int nCount, int nThreshold) {
  Velmora_LoggerUsageMonitorConf monitor;
  monitor.nAvailable = nAvailable;
  monitor.nInterval = nInterval;
  monitor.nCount = nCount;
  monitor.nThreshold = nThreshold;
  return monitor;
}

// The mount points of a list, in order, as "mount:threshold:available".
inline std::vector<std::string> Describe(const std::vector<Velmora_LoggerFsThresholdConf>& vecEntries) {
  std::vector<std::string> vecText;
  for (const auto& entry : vecEntries)
    vecText.push_back(entry.strMount + ":" + std::to_string(entry.nThreshold) + ":" +
                      std::to_string(entry.nAvailable) + ":" + std::to_string(entry.nIndex));
  return vecText;
}

#endif
