// How the development host opens its files: nothing but what was asked for
// is opened, nothing waits, and the descriptor keeps the flags it was
// opened with.
#include "devhost/files/safe_open.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "tests/devhost/devhost_test_support.h"

namespace {

using testing::HasSubstr;

class SafeOpenTest : public devhost_test::DevhostTest {
 protected:
  // The refusal of strPath, which must not open.
  static std::string Refusal(const std::string& strPath, devhost::FileKind eKind = devhost::FileKind::kRegular) {
    std::string strError;
    const int fd = devhost::OpenNoFollow(strPath, O_RDONLY, 0, strError, eKind);
    if (fd >= 0) {
      close(fd);
      return "opened";
    }
    return strError;
  }
};

// A FIFO, a directory, a symbolic link and a device in place of a file are
// refused at once and named; a FIFO would otherwise block the command, and
// with it the lock, until someone writes to it.
TEST_F(SafeOpenTest, RefusesWhatIsNotAFileWithoutWaiting) {
  ASSERT_EQ(mkfifo(Path("fifo").c_str(), 0600), 0);
  EXPECT_EQ(Refusal(Path("fifo")), "refusing " + Path("fifo") + ": it is a FIFO, not a regular file");
  EXPECT_THAT(Refusal(m_strDir), HasSubstr("it is a directory, not a regular file"));
  devhost_test::WriteFile(Path("real.ini"), "[A]\n");
  ASSERT_EQ(symlink(Path("real.ini").c_str(), Path("link.ini").c_str()), 0);
  EXPECT_THAT(Refusal(Path("link.ini")), HasSubstr("it is a symbolic link, which is not followed"));
  EXPECT_THAT(Refusal("/dev/null"), HasSubstr("it is a character device, not a regular file"));
  EXPECT_EQ(Refusal("/dev/null", devhost::FileKind::kRegularOrTerminal), "opened");
  EXPECT_EQ(Refusal(Path("real.ini")), "opened");
}

// The descriptor waits again as usual, keeps O_APPEND (an audit line written
// without it would overwrite the log's start) and is not inherited by the
// commands the host runs; a new file gets the mode asked for.
TEST_F(SafeOpenTest, TheDescriptorKeepsItsFlagsAndBlocksAgain) {
  std::string strError;
  struct stat st;
  const int fd = devhost::OpenNoFollow(Path("audit.log"), O_WRONLY | O_CREAT | O_APPEND, 0600, strError,
                                       devhost::FileKind::kRegular, st);
  ASSERT_GE(fd, 0) << strError;
  const int nStatus = fcntl(fd, F_GETFL);
  EXPECT_TRUE(nStatus & O_APPEND);
  EXPECT_FALSE(nStatus & O_NONBLOCK);
  EXPECT_TRUE(fcntl(fd, F_GETFD) & FD_CLOEXEC);
  EXPECT_EQ(st.st_mode & 0777, 0600u);
  ASSERT_EQ(write(fd, "one\n", 4), 4);
  close(fd);
  const int fdAgain = devhost::OpenNoFollow(Path("audit.log"), O_WRONLY | O_APPEND, 0, strError);
  ASSERT_GE(fdAgain, 0) << strError;
  ASSERT_EQ(write(fdAgain, "two\n", 4), 4);
  close(fdAgain);
  EXPECT_EQ(devhost_test::ReadFile(Path("audit.log")), "one\ntwo\n");
}

// Files and directories that group or others may write, or that belong to
// someone else, are refused with the reason and the fix.
TEST_F(SafeOpenTest, TrustsOnlyWhatNobodyElseCanChange) {
  devhost_test::WriteFile(Path("conf.ini"), "[A]\n");
  chmod(Path("conf.ini").c_str(), 0644);
  std::string strError;
  const int fd = devhost::OpenTrusted(Path("conf.ini"), O_RDONLY, 0, strError);
  EXPECT_GE(fd, 0) << strError;
  if (fd >= 0) close(fd);

  chmod(Path("conf.ini").c_str(), 0664);
  EXPECT_LT(devhost::OpenTrusted(Path("conf.ini"), O_RDONLY, 0, strError), 0);
  EXPECT_EQ(strError,
            "refusing " + Path("conf.ini") + ": group or others can write it (mode 0664; chmod go-w fixes that)");

  std::filesystem::create_directories(Path("shared"));
  chmod(Path("shared").c_str(), 0777);
  EXPECT_FALSE(devhost::isTrustedDirectory(Path("shared"), strError));
  EXPECT_THAT(strError, HasSubstr("mode 0777"));
  chmod(Path("shared").c_str(), 0755);
  EXPECT_TRUE(devhost::isTrustedDirectory(Path("shared"), strError)) << strError;
  EXPECT_FALSE(devhost::isTrustedDirectory(Path("conf.ini"), strError));
  EXPECT_THAT(strError, HasSubstr("it is not a directory"));

  if (devhost::CallerUid() != 0) GTEST_SKIP() << "handing a file to another user needs root";
  chmod(Path("conf.ini").c_str(), 0644);
  ASSERT_EQ(chown(Path("conf.ini").c_str(), 65534, 65534), 0);
  EXPECT_LT(devhost::OpenTrusted(Path("conf.ini"), O_RDONLY, 0, strError), 0);
  EXPECT_THAT(strError, HasSubstr("it belongs to uid 65534, not to you (uid 0)"));
}

}  // namespace
