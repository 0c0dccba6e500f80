// Shared helpers of the development host's tests: a private temporary
// directory per test, environment variables set for the test's duration,
// and file helpers.
#ifndef KTL_TESTS_DEVHOST_TEST_SUPPORT_H
#define KTL_TESTS_DEVHOST_TEST_SUPPORT_H

#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <regex>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace devhost_test {

inline std::string ReadFile(const std::string& strPath) {
  std::ifstream in(strPath, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// Writes a file, creating its directory.
inline void WriteFile(const std::string& strPath, const std::string& strText) {
  std::filesystem::create_directories(std::filesystem::path(strPath).parent_path());
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

// The names in a directory, sorted.
inline std::vector<std::string> Names(const std::string& strDir) {
  std::vector<std::string> vecNames;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(strDir, error))
    vecNames.push_back(entry.path().filename().string());
  std::sort(vecNames.begin(), vecNames.end());
  return vecNames;
}

// The part of a log line after its "YYYY-MM-DDTHH:MM:SS " time stamp, or
// "<no time stamp>" when it does not start with one.
inline std::string AfterTimestamp(const std::string& strLine) {
  static const std::regex kTimestamp("\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d ");
  return std::regex_match(strLine.substr(0, 20), kTimestamp) ? strLine.substr(20) : "<no time stamp>";
}

// A fresh directory for each test, removed with its contents afterwards. The
// host's state, trace and default configuration are pointed into it, so that
// no test touches the operator's files. Variables set with SetEnv get their
// previous values (or their absence) back after the test.
class DevhostTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string strTemplate = ::testing::TempDir() + "ktl-devhost-test-XXXXXX";
    ASSERT_NE(mkdtemp(&strTemplate[0]), nullptr);
    m_strDir = strTemplate;
    m_strStateDir = Path("state");
    SetEnv("KTL_STATE_DIR", m_strStateDir);
    SetEnv("KTL_TRACE_FILE", Path("trace.log"));
    SetEnv("KTL_TRACE_MASK", "0");
    SetEnv("KTL_DEFAULT_CONF", Path("default.ini"));
  }
  void TearDown() override {
    for (auto it = m_vecSavedEnv.rbegin(); it != m_vecSavedEnv.rend(); ++it) {
      if (it->second) {
        setenv(it->first.c_str(), it->second->c_str(), 1);
      } else {
        unsetenv(it->first.c_str());
      }
    }
    std::error_code ignored;
    if (!m_strDir.empty()) std::filesystem::remove_all(m_strDir, ignored);
  }
  void SetEnv(const std::string& strName, const std::string& strValue) {
    const char* pszOld = getenv(strName.c_str());
    m_vecSavedEnv.emplace_back(strName, pszOld ? std::optional<std::string>(pszOld) : std::nullopt);
    setenv(strName.c_str(), strValue.c_str(), 1);
  }
  std::string Path(const std::string& strName) const { return m_strDir + "/" + strName; }
  std::string StateFile(const std::string& strName) const { return m_strStateDir + "/" + strName; }

  std::string m_strDir;
  std::string m_strStateDir;

 private:
  std::vector<std::pair<std::string, std::optional<std::string> > > m_vecSavedEnv;
};

}  // namespace devhost_test

#endif
