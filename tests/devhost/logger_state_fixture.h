// A fresh state directory and default configuration per test, for the tests
// of the logging-tool service's files.
#ifndef KTL_TESTS_DEVHOST_LOGGER_STATE_FIXTURE_H
#define KTL_TESTS_DEVHOST_LOGGER_STATE_FIXTURE_H

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "tests/devhost/devhost_test_support.h"

class LoggerStateTest : public devhost_test::DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    m_strStateDir = Path("state");
    m_strDefault = Path("default.ini");
    m_env.Set("KTL_DEFAULT_CONF", m_strDefault);
  }

  std::string StateFile(const std::string& strName) const { return m_strStateDir + "/" + strName; }

  // Writes a file, creating its directory.
  static void WriteText(const std::string& strPath, const std::string& strText) {
    std::filesystem::create_directories(std::filesystem::path(strPath).parent_path());
    devhost_test::WriteFile(strPath, strText);
  }

  // The names in a directory, sorted.
  static std::vector<std::string> Names(const std::string& strDir) {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(strDir, error))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

  // The id of a process that has ended and been reaped.
  static int EndedProcessId() {
    const pid_t nChild = fork();
    if (nChild == 0) _exit(0);
    waitpid(nChild, nullptr, 0);
    return static_cast<int>(nChild);
  }

  std::string m_strStateDir;
  std::string m_strDefault;
};

// Lowers the file size limit for its lifetime, so that writes past it fail
// with EFBIG: a write failure that needs no special permissions.
class CFileSizeLimit {
 public:
  explicit CFileSizeLimit(rlim_t nBytes) {
    getrlimit(RLIMIT_FSIZE, &m_saved);
    m_oldHandler = signal(SIGXFSZ, SIG_IGN);
    rlimit limited = m_saved;
    limited.rlim_cur = nBytes;
    setrlimit(RLIMIT_FSIZE, &limited);
  }
  ~CFileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &m_saved);
    signal(SIGXFSZ, m_oldHandler);
  }
  CFileSizeLimit(const CFileSizeLimit&) = delete;
  CFileSizeLimit& operator=(const CFileSizeLimit&) = delete;

 private:
  rlimit m_saved;
  sighandler_t m_oldHandler;
};

#endif
