// CKtlUtil::ExecSystemCmd of the development host.
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "devhost/utilities/mount_snapshot.h"
#include "host/ktl_util.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

class ExecSystemCmdTest : public devhost_test::DevhostTest {
 protected:
  // The text of the output file at strPath, which is then removed.
  static std::string Output(const std::string& strPath) {
    const std::string strText = devhost_test::ReadFile(strPath);
    unlink(strPath.c_str());
    return strText;
  }
  // A mount command that counts its runs in runs.log.
  void UseCountingMountCommand() {
    const std::string strScript = Path("mount.sh");
    devhost_test::WriteFile(strScript,
                            "#!/bin/sh\necho run >> " + Path("runs.log") + "\necho 'tmpfs on /data type tmpfs (rw)'\n");
    chmod(strScript.c_str(), 0700);
    SetEnv("KTL_MOUNT_CMD", strScript);
  }
  size_t Runs() { return devhost_test::Lines(devhost_test::ReadFile(Path("runs.log"))).size(); }
};

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

// One command sees one listing of the mounts: the command runs once while a
// snapshot is open, and afresh for each request outside one.
TEST_F(ExecSystemCmdTest, RunsTheMountCommandOncePerSnapshot) {
  UseCountingMountCommand();
  {
    const devhost::CMountSnapshot snapshot;
    EXPECT_EQ(Output(CKtlUtil::ExecSystemCmd("/bin/mount")), "tmpfs on /data type tmpfs (rw)\n");
    EXPECT_EQ(Output(CKtlUtil::ExecSystemCmd("/bin/mount")), "tmpfs on /data type tmpfs (rw)\n");
    EXPECT_EQ(Runs(), 1u);
  }
  EXPECT_EQ(Output(CKtlUtil::ExecSystemCmd("/bin/mount")), "tmpfs on /data type tmpfs (rw)\n");
  EXPECT_EQ(Output(CKtlUtil::ExecSystemCmd("/bin/mount")), "tmpfs on /data type tmpfs (rw)\n");
  EXPECT_EQ(Runs(), 3u);
  // Other commands are never answered from the snapshot.
  const devhost::CMountSnapshot snapshot;
  EXPECT_EQ(Output(CKtlUtil::ExecSystemCmd("echo %d", 1)), "1\n");
  EXPECT_EQ(Output(CKtlUtil::ExecSystemCmd("echo %d", 2)), "2\n");
}

// A program path is started without the shell, yet behaves as under it: a
// file without "#!" still runs as a shell script, and a missing program gets
// the shell's complaint and no output.
TEST_F(ExecSystemCmdTest, AProgramPathBehavesAsUnderTheShell) {
  const std::string strScript = Path("plain-script");
  devhost_test::WriteFile(strScript, "echo listed\n");
  chmod(strScript.c_str(), 0700);
  EXPECT_EQ(Output(CKtlUtil::ExecSystemCmd(strScript.c_str())), "listed\n");

  testing::internal::CaptureStderr();
  EXPECT_EQ(Output(CKtlUtil::ExecSystemCmd("%s", Path("no-such-program").c_str())), "");
  EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("not found"));
}

}  // namespace
