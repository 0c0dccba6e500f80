// CKtlUtil::ExecSystemCmd of the development host.
#include <sys/stat.h>
#include <unistd.h>

#include "host/ktl_util.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

using devhost_test::DevhostTest;

class ExecSystemCmdTest : public DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    std::filesystem::create_directories(Path("tmp"));
    m_env.Set("TMPDIR", Path("tmp"));
  }
  // Runs the command, checks where its file is and returns the output.
  std::string Output(const std::string& strPath) {
    EXPECT_EQ(strPath.rfind(Path("tmp/"), 0), 0u) << strPath;
    struct stat st;
    EXPECT_EQ(stat(strPath.c_str(), &st), 0) << strPath;
    EXPECT_EQ(st.st_mode & 0777, 0600u);
    const std::string strText = devhost_test::ReadFile(strPath);
    unlink(strPath.c_str());
    return strText;
  }
};

TEST_F(ExecSystemCmdTest, CapturesTheOutputOfTheFormattedCommandInAPrivateFile) {
  EXPECT_EQ(Output(CKtlUtil::ExecSystemCmd("printf '%%s-%%d\\n' %s %d", "word", 42)), "word-42\n");
}

TEST_F(ExecSystemCmdTest, MountIsRedirectedOnlyWhenItIsTheWholeCommand) {
  m_env.Set("KTL_MOUNT_CMD", "echo 'tmpfs on /data type tmpfs (rw)'");
  EXPECT_EQ(Output(CKtlUtil::ExecSystemCmd("/bin/mount")), "tmpfs on /data type tmpfs (rw)\n");
  EXPECT_EQ(Output(CKtlUtil::ExecSystemCmd("echo %s", "/bin/mount")), "/bin/mount\n");
}

TEST_F(ExecSystemCmdTest, TheCommandCannotReadTheOperatorsInput) {
  EXPECT_EQ(Output(CKtlUtil::ExecSystemCmd("cat")), "");
}

TEST_F(ExecSystemCmdTest, WithoutATemporaryDirectoryThePathNamesNoFile) {
  m_env.Set("TMPDIR", Path("missing"));
  const std::string strPath = CKtlUtil::ExecSystemCmd("echo lost");
  EXPECT_FALSE(strPath.empty());
  EXPECT_NE(access(strPath.c_str(), F_OK), 0) << strPath;
}

}  // namespace
