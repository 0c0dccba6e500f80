// Shared helpers of the development host's tests: a private temporary
// directory per test, environment variables set for the test's duration,
// file helpers and names for table-driven cases.
#ifndef KTL_TESTS_DEVHOST_TEST_SUPPORT_H
#define KTL_TESTS_DEVHOST_TEST_SUPPORT_H

#include <gtest/gtest.h>
#include <stdlib.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/case_name.h"

namespace devhost_test {

inline std::string ReadFile(const std::string& strPath) {
  std::ifstream in(strPath, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

inline void WriteFile(const std::string& strPath, const std::string& strText) {
  std::ofstream out(strPath, std::ios::binary | std::ios::trunc);
  out << strText;
}

// The lines of a text, each without its "\n"; a last line without one too.
inline std::vector<std::string> Lines(const std::string& strText) {
  std::vector<std::string> vecLines;
  std::istringstream in(strText);
  for (std::string strLine; std::getline(in, strLine);) vecLines.push_back(strLine);
  return vecLines;
}

// The part of a log line after its "YYYY-MM-DDTHH:MM:SS " time stamp, or
// "<no time stamp>" when it does not start with one.
inline std::string AfterTimestamp(const std::string& strLine) {
  const std::string strShape = "dddd-dd-ddTdd:dd:dd ";
  if (strLine.size() < strShape.size()) return "<no time stamp>";
  for (size_t i = 0; i < strShape.size(); ++i) {
    const bool bMatches = strShape[i] == 'd' ? std::isdigit(static_cast<unsigned char>(strLine[i])) != 0
                                             : strLine[i] == strShape[i];
    if (!bMatches) return "<no time stamp>";
  }
  return strLine.substr(strShape.size());
}

// Sets variables for the lifetime of the object and restores the previous
// values (or their absence) afterwards.
class ScopedEnv {
 public:
  ScopedEnv() {}
  ScopedEnv(const ScopedEnv&) = delete;
  ScopedEnv& operator=(const ScopedEnv&) = delete;
  ~ScopedEnv() {
    for (auto it = m_vecSaved.rbegin(); it != m_vecSaved.rend(); ++it) {
      if (it->second.first) {
        setenv(it->first.c_str(), it->second.second.c_str(), 1);
      } else {
        unsetenv(it->first.c_str());
      }
    }
  }
  void Set(const std::string& strName, const std::string& strValue) {
    Save(strName);
    setenv(strName.c_str(), strValue.c_str(), 1);
  }
  void Unset(const std::string& strName) {
    Save(strName);
    unsetenv(strName.c_str());
  }

 private:
  void Save(const std::string& strName) {
    const char* pszOld = getenv(strName.c_str());
    m_vecSaved.push_back({strName, {pszOld != nullptr, pszOld ? pszOld : ""}});
  }
  std::vector<std::pair<std::string, std::pair<bool, std::string> > > m_vecSaved;
};

// A fresh directory for each test, removed with its contents afterwards. The
// host's state and trace are pointed into it, so that no test touches the
// operator's files.
class DevhostTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string strTemplate = ::testing::TempDir() + "ktl-devhost-test-XXXXXX";
    ASSERT_NE(mkdtemp(&strTemplate[0]), nullptr);
    m_strDir = strTemplate;
    m_env.Set("KTL_STATE_DIR", m_strDir + "/state");
    m_env.Set("KTL_TRACE_FILE", m_strDir + "/trace.log");
    m_env.Set("KTL_TRACE_MASK", "0");
  }
  void TearDown() override {
    std::error_code ignored;
    if (!m_strDir.empty()) std::filesystem::remove_all(m_strDir, ignored);
  }
  std::string Path(const std::string& strName) const { return m_strDir + "/" + strName; }

  std::string m_strDir;
  ScopedEnv m_env;
};

using ktl_test::CaseName;

}  // namespace devhost_test

#endif
