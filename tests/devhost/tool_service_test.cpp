// The logging tool's service as the plug-in drives it, on real files.
#include "host/tool_service_logger_acc.h"

#include "tests/devhost/logger_state_fixture.h"

namespace {

using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;
using devhost_test::ReadFile;

const char kDefaultText[] =
    "; shipped default\n"
    "[Syslog]\nOutput=0x11\nInformation=0x11\nWarning=0x11\nError=0x11\n"
    "[CPU]\nAvailable=0x11\nInterval=60\nCount=3\nThreshold=90\n"
    "[MEMORY]\nAvailable=0x11\nInterval=60\nCount=3\nThreshold=90\n"
    "[FILESYS]\nAvailable=0x10\nInterval=300\nCount=3\nNumFileSys=0\n";

class ToolServiceTest : public LoggerStateTest {
 protected:
  std::string Effective() const { return StateFile("logger.ini"); }
  std::string Pending() const { return StateFile("logger.edit.ini"); }
  std::string Owner() const { return StateFile("logger.edit.owner"); }
  void Install() {
    std::filesystem::remove_all(m_strStateDir);
    WriteText(m_strDefault, kDefaultText);
  }
  const int m_nSelf = static_cast<int>(getpid());
};

TEST_F(ToolServiceTest, WithoutEffectiveOrDefaultTheToolIsNotInstalled) {
  CToolServiceLoggerAcc acc;
  Velmora_LoggerConf conf;
  std::string strValue;
  CaptureStderr();
  EXPECT_EQ(acc.GetParameter(conf), 176);
  EXPECT_EQ(acc.SetParameter(conf), 176);
  EXPECT_EQ(acc.initWrite(m_nSelf), 176);
  EXPECT_FALSE(acc.GetString("FILESYS", "NumFileSys", strValue));
  EXPECT_FALSE(acc.WriteString("CPU", "Interval", "30"));
  EXPECT_TRUE(acc.Discard());
  EXPECT_NE(GetCapturedStderr().find("not installed"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(m_strStateDir));
}

// The shipped default becomes the effective configuration on first use, once
// it is known to be valid; a broken file is explained, naming it.
TEST_F(ToolServiceTest, FirstUseCopiesAValidDefaultAndBrokenFilesAreExplained) {
  const std::string strShipped = ReadFile(KTL_SOURCE_DIR "/devhost/default/logger.ini");
  const struct {
    bool bDefault;  // the file is the default, with no effective one yet
    std::string strText;
    const char* expected;  // in the message, after the file's path; nullptr = valid
  } cases[] = {
      {true, strShipped, nullptr},
      {false, "[CPU]\nCount=1\nCount=2\n", ":3: malformed INI file: duplicate key"},
      {false, "[CPU]\nInterval=sixty\n", ": [CPU] Interval=\"sixty\" is not"},
      {true, "[MEMORY]\nCount\n", ":2: malformed INI file"},
  };
  for (const auto& c : cases) {
    std::filesystem::remove_all(m_strStateDir);
    const std::string strFile = c.bDefault ? m_strDefault : Effective();
    WriteText(strFile, c.strText);
    Velmora_LoggerConf conf;
    CaptureStderr();
    EXPECT_EQ(CToolServiceLoggerAcc().GetParameter(conf), c.expected ? 1 : 0) << c.strText;
    const std::string strMessage = GetCapturedStderr();
    if (c.expected) {
      EXPECT_NE(strMessage.find(strFile + c.expected), std::string::npos) << strMessage;
    }
    EXPECT_EQ(ReadFile(Effective()), c.expected && c.bDefault ? "" : c.strText) << "a broken default is not copied";
  }
  EXPECT_EQ(CToolServiceLoggerAcc().initWrite(m_nSelf), 1) << "nor used by an edit";
}

TEST_F(ToolServiceTest, PendingConfigurationIsCopiedOnFirstWrite) {
  Install();
  CToolServiceLoggerAcc acc;
  ASSERT_EQ(acc.initWrite(m_nSelf), 0);
  Velmora_LoggerConf pending;
  std::string strValue;
  EXPECT_FALSE(acc.ReadConfFile(pending));
  ASSERT_TRUE(acc.GetString("FILESYS", "NumFileSys", strValue)) << "the effective configuration answers";
  EXPECT_EQ(strValue, "0");
  EXPECT_FALSE(acc.GetString("FILESYS", "Absent", strValue));

  ASSERT_TRUE(acc.WriteString("CPU", "Interval", "30"));
  ASSERT_TRUE(acc.WriteString("FSNAME-1", "Mount", "/data"));
  EXPECT_EQ(ReadFile(Effective()), kDefaultText);
  EXPECT_EQ(ReadFile(Owner()), std::to_string(m_nSelf) + "\n");
  ASSERT_TRUE(acc.GetString("CPU", "Interval", strValue));
  EXPECT_EQ(strValue, "30");
  ASSERT_TRUE(acc.ReadConfFile(pending));
  EXPECT_EQ(pending.cpu.nThreshold, 90) << "the copy keeps the effective values";
  ASSERT_EQ(pending.fs.vecThreshold.size(), 1u);
}

TEST_F(ToolServiceTest, PendingEditsBelongToOneLiveSession) {
  const std::string strPendingText = "[CPU]\nInterval=45\n";
  const struct {
    const char* name;
    const char* pending;  // content of the pending file; nullptr = none
    int nOwner;           // 0 = no owner file
    int nInitWrite;
    bool bMayEdit;
    bool bStartsFromEffective;  // the edit copies the configuration in effect
  } cases[] = {
      {"nothing pending", nullptr, 0, 0, true, true},
      {"own edits", strPendingText.c_str(), m_nSelf, 0, true, false},
      {"edits of the live parent", strPendingText.c_str(), static_cast<int>(getppid()), -1, false, false},
      {"edits of an ended process", strPendingText.c_str(), EndedProcessId(), 0, true, false},
      // What a power cut can leave of an edit that had not reached the disk.
      {"empty pending file of the live parent", "", static_cast<int>(getppid()), 0, true, true},
  };
  for (const auto& c : cases) {
    Install();
    if (c.pending) WriteText(Pending(), c.pending);
    if (c.nOwner > 0) WriteText(Owner(), std::to_string(c.nOwner) + "\n");
    CToolServiceLoggerAcc acc;
    const bool bFree = !c.pending || !*c.pending || c.nOwner == m_nSelf;
    EXPECT_EQ(acc.CheckProcessId(m_nSelf), bFree) << c.name;
    EXPECT_EQ(acc.initWrite(m_nSelf), c.nInitWrite) << c.name;
    EXPECT_EQ(acc.CheckProcessId(m_nSelf), c.bMayEdit) << c.name;
    CaptureStderr();
    EXPECT_EQ(acc.WriteString("CPU", "Count", "4"), c.bMayEdit) << c.name;
    GetCapturedStderr();
    EXPECT_EQ(ReadFile(Owner()), std::to_string(c.bMayEdit ? m_nSelf : c.nOwner) + "\n") << c.name;
    if (!c.bMayEdit) {
      EXPECT_EQ(ReadFile(Pending()), strPendingText) << c.name;
    }
    std::string strValue;
    CaptureStderr();
    EXPECT_EQ(acc.GetString("MEMORY", "Interval", strValue), c.bStartsFromEffective) << c.name;
    GetCapturedStderr();
  }
}

TEST_F(ToolServiceTest, EditsStartedAtOnceAreAllKept) {
  Install();
  const int kEditors = 8;
  std::vector<pid_t> children;
  for (int i = 0; i < kEditors; ++i) {
    const pid_t nChild = fork();
    if (nChild == 0) {
      CToolServiceLoggerAcc acc;
      _exit(acc.initWrite(getppid()) == 0 &&
                    acc.WriteString("FSNAME-" + std::to_string(i + 1), "Mount", "/m" + std::to_string(i))
                ? 0
                : 1);
    }
    children.push_back(nChild);
  }
  for (pid_t nChild : children) {
    int nStatus = 0;
    ASSERT_EQ(waitpid(nChild, &nStatus, 0), nChild);
    EXPECT_TRUE(WIFEXITED(nStatus) && WEXITSTATUS(nStatus) == 0);
  }
  Velmora_LoggerConf pending;
  ASSERT_TRUE(CToolServiceLoggerAcc().ReadConfFile(pending));
  EXPECT_EQ(pending.fs.vecThreshold.size(), static_cast<std::size_t>(kEditors));
}

TEST_F(ToolServiceTest, SaveReplacesTheEffectiveConfigurationOnlyWhenItSucceeds) {
  Install();
  CToolServiceLoggerAcc acc;
  ASSERT_EQ(acc.initWrite(m_nSelf), 0);
  ASSERT_TRUE(acc.WriteString("CPU", "Available", "0x10"));
  const std::string strPending = ReadFile(Pending());
  const std::vector<std::string> names = Names(m_strStateDir);
  // A record without MEMORY values.
  Velmora_LoggerConf saved;
  saved.cpu.nInterval = 120;
  saved.fs.vecThreshold.resize(2);

  // Too long for the file size limit, which leaves room for the message.
  Velmora_LoggerConf tooLong = saved;
  tooLong.fs.vecThreshold[0].strMount = "/" + std::string(8192, 'd');
  CaptureStderr();
  {
    CFileSizeLimit limit(4096);
    EXPECT_EQ(acc.SetParameter(tooLong), 1);
  }
  const std::string strMessage = GetCapturedStderr();
  EXPECT_NE(strMessage.find("cannot replace " + Effective()), std::string::npos) << strMessage;
  EXPECT_EQ(ReadFile(Effective()), kDefaultText);
  EXPECT_EQ(Names(m_strStateDir), names) << "no temporary file is left";

  ASSERT_EQ(acc.SetParameter(saved), 0);
  EXPECT_EQ(ReadFile(Pending()), strPending);
  Velmora_LoggerConf effective;
  ASSERT_EQ(acc.GetParameter(effective), 0);
  EXPECT_EQ(effective.cpu.nInterval, 120);
  EXPECT_EQ(effective.mem.nInterval, 0) << "the record replaces the file, the default's 60 included";
  EXPECT_EQ(effective.fs.vecThreshold.size(), 2u);
}

TEST_F(ToolServiceTest, DiscardIsIdempotentAndReportsAFailure) {
  Install();
  CToolServiceLoggerAcc acc;
  EXPECT_TRUE(acc.Discard()) << "nothing pending";
  ASSERT_EQ(acc.initWrite(m_nSelf), 0);
  ASSERT_TRUE(acc.WriteString("Syslog", "Output", "0x10"));
  EXPECT_TRUE(acc.Discard());
  EXPECT_EQ(Names(m_strStateDir), (std::vector<std::string>{"logger.ini", "logger.lock"}));

  WriteText(Pending() + "/inside", "a pending file that cannot be removed");
  CaptureStderr();
  EXPECT_FALSE(acc.Discard());
  EXPECT_NE(GetCapturedStderr().find("cannot remove " + Pending()), std::string::npos);
}

TEST_F(ToolServiceTest, ShowConfTracesOneLinePerSection) {
  m_env.Set("KTL_TRACE_MASK", "1");
  Velmora_LoggerConf conf;
  conf.cpu.nInterval = 120;
  conf.fs.vecThreshold.resize(1);
  CToolServiceLoggerAcc().ShowConf(conf);
  const std::string strTrace = ReadFile(Path("trace.log"));
  EXPECT_EQ(std::count(strTrace.begin(), strTrace.end(), '\n'), 5) << strTrace;
  EXPECT_NE(strTrace.find(" cli 1 ShowConf [CPU] Available=0 Interval=120 Count=0 Threshold=0\n"), std::string::npos)
      << strTrace;
}

}  // namespace
