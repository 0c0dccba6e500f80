// The logging tool's service as the plug-in drives it, on real files: a
// command's edits reach the pending file once, whole, when it commits, and
// pending edits belong to one live terminal session. What is refused, and
// how it reads, is in the ktl-cli sessions (tests/cli/*.t).
#include "host/tool_service_logger_acc.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "devhost/files/command_lock.h"
#include "devhost/service/edit_session.h"
#include "devhost/service/pending_edits.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

using devhost_test::ReadFile;
using devhost_test::WriteFile;
using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;

class ToolServiceTest : public devhost_test::DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    WriteFile(Path("default.ini"), ReadFile(KTL_SOURCE_DIR "/devhost/default/logger.ini"));
  }
  // Ends the command, as ktl-cli does after Exec; its messages.
  static std::string Commit(bool bExpected) {
    CaptureStderr();
    EXPECT_EQ(devhost::CommitPendingEdits(), bExpected);
    return GetCapturedStderr();
  }
  std::string Pending() const { return StateFile("logger.edit.ini"); }
  // This process's session as the host names it (GetPPID): inside a PID
  // namespace entered from outside, getsid answers 0.
  const int m_nSelf = devhost::CurrentSession();
};

TEST_F(ToolServiceTest, ACommandsEditsAreWrittenOnceWholeOrNotAtAll) {
  std::string strValue;
  {
    CToolServiceLoggerAcc acc;
    ASSERT_EQ(acc.initWrite(m_nSelf), 0);
    ASSERT_TRUE(acc.WriteString("FILESYS", "NumFileSys", "1"));
    ASSERT_TRUE(acc.WriteString("FSNAME-1", "Available", "0x11"));
    EXPECT_TRUE(acc.GetString("FSNAME-1", "Available", strValue)) << "the command sees its own edits";
    EXPECT_FALSE(std::filesystem::exists(Pending())) << "nothing is written before the commit";
    ASSERT_TRUE(acc.WriteString("FSNAME-1", "Mount", "/data"));
    Commit(true);
  }
  const std::string strCommitted = ReadFile(Pending());
  EXPECT_NE(strCommitted.find("[FSNAME-1]\nAvailable=0x11\nMount=/data\n"), std::string::npos) << strCommitted;
  EXPECT_NE(strCommitted.find("[EditSession]\nSession=" + std::to_string(m_nSelf) + "\n"), std::string::npos);

  // Each of these commands fails as a whole, and the file stays as it was.
  const struct {
    const char* name;
    std::vector<std::vector<std::string> > writes;  // section, key, value
    const char* pszChangedMeanwhile;                // the file's text before the commit; nullptr = as it was
    const char* pszMessage;
  } cases[] = {
      {"an entry beyond 9999",
       {{"CPU", "Count", "4"}, {"FSNAME-10000", "Mount", "/data"}},
       nullptr,
       "[FSNAME-10000]: not a mount-point section"},
      {"a count beyond 9999", {{"FILESYS", "NumFileSys", "10000"}}, nullptr, "\"10000\" is not a number from 0"},
      {"an entry left without its mount point",
       {{"FILESYS", "NumFileSys", "2"}, {"FSNAME-2", "Available", "0x11"}},
       nullptr,
       "[FSNAME-2] Mount: missing"},
      {"a file replaced meanwhile", {{"CPU", "Count", "4"}}, "[CPU]\nCount=5\n", "was changed by another command"},
  };
  for (const auto& c : cases) {
    CToolServiceLoggerAcc acc;
    CaptureStderr();
    for (const auto& write : c.writes) acc.WriteString(write[0], write[1], write[2]);
    std::string strMessages = GetCapturedStderr();
    if (c.pszChangedMeanwhile) {
      // Another command runs while this one waits for an answer.
      const devhost::CCommandLockReleased question;
      WriteFile(Pending(), c.pszChangedMeanwhile);
    }
    strMessages += Commit(false);
    EXPECT_NE(strMessages.find(c.pszMessage), std::string::npos) << c.name << ": " << strMessages;
    EXPECT_EQ(ReadFile(Pending()), c.pszChangedMeanwhile ? c.pszChangedMeanwhile : strCommitted) << c.name;
    WriteFile(Pending(), strCommitted);
  }

  // Edits dropped by another command while this one waited for an answer.
  CToolServiceLoggerAcc acc;
  ASSERT_TRUE(acc.CheckProcessId(m_nSelf));
  {
    const devhost::CCommandLockReleased question;
    std::filesystem::remove(Pending());
  }
  Velmora_LoggerConf conf;
  CaptureStderr();
  EXPECT_FALSE(acc.ReadConfFile(conf));
  EXPECT_NE(GetCapturedStderr().find("discarded by another command while this one waited"), std::string::npos);
  Commit(false);
}

// Pending edits belong to the session recorded with them while its leader
// runs with the recorded start time; any other record can be taken over.
TEST_F(ToolServiceTest, PendingEditsBelongToOneLiveSession) {
  const pid_t nLeader = fork();  // another terminal session, alive for the test
  if (nLeader == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    setsid();
    pause();
    _exit(0);
  }
  ASSERT_GT(nLeader, 0);
  const std::string strEdits = "[CPU]\nInterval=45\n[EditSession]\n";
  const std::string strLeader = "Session=" + std::to_string(nLeader) + "\n";
  const struct {
    const char* name;
    std::string strPending;  // "" = none
    bool bMayEdit;
  } cases[] = {
      {"nothing pending", "", true},
      {"own edits", strEdits + "Session=" + std::to_string(m_nSelf) + "\n", true},
      {"edits of a live session", strEdits + strLeader, false},
      {"edits of a session that ended", strEdits + "Session=2147483647\n", true},
      {"edits of an ended session whose id runs again", strEdits + strLeader + "LeaderStart=1\n", true},
      {"edits of an ended session with this one's id",
       strEdits + "Session=" + std::to_string(m_nSelf) + "\nLeaderStart=1\n", true},
      {"edits of this session's id in another PID namespace",
       strEdits + "Session=" + std::to_string(m_nSelf) + "\nPidNamespace=1\n", false},
      {"edits without owner", "[CPU]\nInterval=45\n", true},
      {"owner with garbage", strEdits + "Session=12x\n", true},
  };
  for (const auto& c : cases) {
    std::filesystem::remove(Pending());
    if (!c.strPending.empty()) WriteFile(Pending(), c.strPending);
    CToolServiceLoggerAcc acc;
    EXPECT_EQ(acc.initWrite(m_nSelf), c.bMayEdit ? 0 : -1) << c.name;
    EXPECT_EQ(acc.CheckProcessId(m_nSelf), c.bMayEdit) << c.name;
    CaptureStderr();
    EXPECT_EQ(acc.Discard(), c.bMayEdit) << c.name;
    EXPECT_EQ(acc.WriteString("CPU", "Count", "4"), c.bMayEdit) << c.name;
    std::string strMessages = GetCapturedStderr();
    strMessages += Commit(c.bMayEdit);
    if (c.bMayEdit) {
      // A takeover records the new owner whole, the old start time not kept.
      const std::string strNow = ReadFile(Pending());
      EXPECT_NE(strNow.find("Session=" + std::to_string(m_nSelf) + "\n"), std::string::npos) << c.name;
      EXPECT_EQ(strNow.find("LeaderStart=1\n"), std::string::npos) << c.name;
      EXPECT_NE(strNow.find("PidNamespace="), std::string::npos) << c.name;
    } else {
      EXPECT_EQ(ReadFile(Pending()), c.strPending) << c.name;
      EXPECT_NE(strMessages.find("belong to session "), std::string::npos) << strMessages;
    }
  }
  kill(nLeader, SIGKILL);
  waitpid(nLeader, nullptr, 0);
}

}  // namespace
