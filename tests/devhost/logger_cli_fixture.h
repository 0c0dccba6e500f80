// The "logger" command run through ktl-cli against a temporary state
// directory, with the real plug-in, catalogue, templates and default
// configuration. The mount listing comes from a script that lists /data,
// /backup and /m1 to /m9, so the tests do not depend on the machine.
#ifndef KTL_TESTS_DEVHOST_LOGGER_CLI_FIXTURE_H
#define KTL_TESTS_DEVHOST_LOGGER_CLI_FIXTURE_H

#include <sys/stat.h>

#include "tests/devhost/cli_process.h"

class LoggerCliTest : public devhost_test::DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    m_env.Set("KTL_PLUGIN_DIR", KTL_PLUGIN_DIR_FOR_TESTS);
    m_env.Set("KTL_CATALOGUE", KTL_SOURCE_DIR "/devhost/catalogue/messages.ini");
    m_env.Set("KTL_TEMPLATE_DIR", KTL_SOURCE_DIR "/devhost/templates");
    m_env.Set("KTL_DEFAULT_CONF", KTL_SOURCE_DIR "/devhost/default/logger.ini");
    m_env.Set("KTL_ROOT", Path("root"));
    const std::string strMount = Path("mount.sh");
    devhost_test::WriteFile(strMount,
                            "#!/bin/sh\n"
                            "echo '/dev/sdb1 on /data type ext4 (rw,relatime)'\n"
                            "echo '/dev/sdc1 on /backup type xfs (rw)'\n"
                            "for n in 1 2 3 4 5 6 7 8 9; do echo \"tmpfs on /m$n type tmpfs (rw)\"; done\n");
    chmod(strMount.c_str(), 0700);
    m_env.Set("KTL_MOUNT_CMD", strMount);
  }

  devhost_test::CliRun Run(const std::vector<std::string>& vecWords, const std::string& strStdin = "",
                           bool bOtherSession = false) {
    return devhost_test::RunCli(LoggerWords(vecWords), m_strDir, strStdin, bOtherSession);
  }

  // Runs a command that must succeed.
  void RunOk(const std::vector<std::string>& vecWords, const std::string& strStdin = "") {
    const devhost_test::CliRun run = Run(vecWords, strStdin);
    ASSERT_EQ(run.nExitStatus, 0) << vecWords[0] << ": " << run.strErr;
  }

  static std::vector<std::string> LoggerWords(const std::vector<std::string>& vecWords) {
    std::vector<std::string> vecArgs = {"logger"};
    vecArgs.insert(vecArgs.end(), vecWords.begin(), vecWords.end());
    return vecArgs;
  }

  std::string Effective() { return devhost_test::ReadFile(Path("state/logger.ini")); }
  std::string Pending() { return devhost_test::ReadFile(Path("state/logger.edit.ini")); }
};

#endif
