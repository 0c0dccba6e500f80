// CKtlUtil::ExecSystemCmd of the development host.
#include <sys/stat.h>
#include <unistd.h>

#include "host/ktl_util.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

class ExecSystemCmdTest : public devhost_test::DevhostTest {};

// The output lands in a private file under TMPDIR. "/bin/mount" runs the
// configured mount command only as the whole command; the command reads no
// input.
TEST_F(ExecSystemCmdTest, CapturesTheOutputOfTheFormattedCommandInAPrivateFile) {
  std::filesystem::create_directories(Path("tmp"));
  SetEnv("TMPDIR", Path("tmp"));
  SetEnv("KTL_MOUNT_CMD", "echo 'tmpfs on /data type tmpfs (rw)'");
  const auto output = [this](const std::string& strPath) {
    EXPECT_EQ(strPath.rfind(Path("tmp/"), 0), 0u) << strPath;
    struct stat st;
    EXPECT_EQ(stat(strPath.c_str(), &st), 0) << strPath;
    EXPECT_EQ(st.st_mode & 0777, 0600u);
    const std::string strText = devhost_test::ReadFile(strPath);
    unlink(strPath.c_str());
    return strText;
  };
  EXPECT_EQ(output(CKtlUtil::ExecSystemCmd("printf '%%s-%%d\\n' %s %d", "word", 42)), "word-42\n");
  EXPECT_EQ(output(CKtlUtil::ExecSystemCmd("/bin/mount")), "tmpfs on /data type tmpfs (rw)\n");
  EXPECT_EQ(output(CKtlUtil::ExecSystemCmd("echo %s", "/bin/mount")), "/bin/mount\n");
  EXPECT_EQ(output(CKtlUtil::ExecSystemCmd("cat")), "");
}

}  // namespace
