// The removal of temporary files that killed commands left behind: only
// files of the host's own naming pattern, owned by the caller, whose process
// has ended or which are too old to belong to a running command. Anything
// else may be a running command's file or somebody else's.
#include "devhost/files/leftovers.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "tests/devhost/devhost_test_support.h"

namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

class LeftoversTest : public devhost_test::DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    std::filesystem::create_directories(Path("tmp"));
    // A process that has ended: a child, waited for.
    const pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) _exit(0);
    ASSERT_EQ(waitpid(pid, nullptr, 0), pid);
    m_strEnded = std::to_string(pid);
    m_strLive = std::to_string(getppid());
    m_strOwn = std::to_string(getpid());
  }
  void Make(const std::string& strName) { devhost_test::WriteFile(Path("tmp/" + strName), "x"); }
  std::vector<std::string> Left() const { return devhost_test::Names(Path("tmp")); }

  std::string m_strEnded, m_strLive, m_strOwn;
};

TEST_F(LeftoversTest, RemovesOnlyTheCallersFilesOfEndedProcessesInThePattern) {
  Make("ktl-cmd-" + m_strEnded + ".Ab12Cd");
  Make("ktl-cmd-" + m_strLive + ".Ab12Cd");
  Make("ktl-cmd-" + m_strOwn + ".Ab12Cd");
  Make("ktl-cmd-" + m_strEnded + ".Ab12C");       // not six characters
  Make("ktl-cmd-" + m_strEnded + "x.Ab12Cd");     // not a process id
  Make("old-ktl-cmd-" + m_strEnded + ".Ab12Cd");  // the prefix must start the name
  std::filesystem::create_directories(Path("tmp/ktl-cmd-" + m_strEnded + ".Dir123"));
  ASSERT_EQ(symlink(Path("elsewhere").c_str(), Path("tmp/ktl-cmd-" + m_strEnded + ".Lnk123").c_str()), 0);

  devhost::RemoveLeftovers(Path("tmp"), "ktl-cmd-", true);
  EXPECT_THAT(Left(), UnorderedElementsAre("ktl-cmd-" + m_strLive + ".Ab12Cd", "ktl-cmd-" + m_strOwn + ".Ab12Cd",
                                           "ktl-cmd-" + m_strEnded + ".Ab12C", "ktl-cmd-" + m_strEnded + "x.Ab12Cd",
                                           "old-ktl-cmd-" + m_strEnded + ".Ab12Cd", "ktl-cmd-" + m_strEnded + ".Dir123",
                                           "ktl-cmd-" + m_strEnded + ".Lnk123"));
}

// The temporary files of an atomic replacement carry the target's name
// before the pattern; one older than any command is removed even when its
// process id has been given to a live process since.
TEST_F(LeftoversTest, FilesOfAReplacementAndOldFilesOfLiveIdsGo) {
  Make("logger.ini.tmp." + m_strEnded + ".Ab12Cd");
  Make("logger.ini.tmp." + m_strLive + ".Ab12Cd");
  Make("logger.ini.tmp." + m_strLive + ".Old123");
  const struct timespec times[2] = {{time(nullptr) - 7200, 0}, {time(nullptr) - 7200, 0}};
  ASSERT_EQ(utimensat(AT_FDCWD, Path("tmp/logger.ini.tmp." + m_strLive + ".Old123").c_str(), times, 0), 0);

  devhost::RemoveLeftovers(Path("tmp"), ".tmp.", false);
  EXPECT_THAT(Left(), ElementsAre("logger.ini.tmp." + m_strLive + ".Ab12Cd"));
}

TEST_F(LeftoversTest, AnotherUsersFileStays) {
  if (geteuid() != 0) GTEST_SKIP() << "handing a file to another user needs root";
  Make("ktl-cmd-" + m_strEnded + ".Ab12Cd");
  ASSERT_EQ(chown(Path("tmp/ktl-cmd-" + m_strEnded + ".Ab12Cd").c_str(), 65534, 65534), 0);
  devhost::RemoveLeftovers(Path("tmp"), "ktl-cmd-", true);
  EXPECT_THAT(Left(), ElementsAre("ktl-cmd-" + m_strEnded + ".Ab12Cd"));
}

}  // namespace
