// The logging tool's service as the plug-in drives it, on real files.
#include "host/tool_service_logger_acc.h"

#include <unistd.h>

#include <sstream>

#include "devhost/service/service_failure.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;
using devhost_test::ReadFile;
using devhost_test::WriteFile;

const std::string kDefaultText = ReadFile(KTL_SOURCE_DIR "/devhost/default/logger.ini");

class ToolServiceTest : public devhost_test::DevhostTest {
 protected:
  std::string Effective() const { return StateFile("logger.ini"); }
  std::string Pending() const { return StateFile("logger.edit.ini"); }
  std::string Owner() const { return StateFile("logger.edit.owner"); }
  void Install() {
    std::filesystem::remove_all(m_strStateDir);
    WriteFile(Path("default.ini"), kDefaultText);
  }
  const int m_nSelf = static_cast<int>(getpid());
};

// The tool is installed when the effective configuration or the shipped
// default exists. The default becomes the effective configuration on first
// use, once it is known to be valid; a broken file is explained, naming it.
TEST_F(ToolServiceTest, FirstUseCopiesAValidDefaultAndBrokenFilesAreExplained) {
  const struct {
    const char* pszFile;  // the one file there is, a default or an effective one; nullptr = none
    std::string strText;
    int nResult;
    const char* expected;  // in the message, after the file's path
  } cases[] = {
      {nullptr, "", 176, "not installed"},
      {"default.ini", kDefaultText, 0, nullptr},
      {"state/logger.ini", "[CPU]\nInterval=sixty\n", 1, ": [CPU] Interval=\"sixty\" is not"},
      {"state/logger.ini", "Output=0x11\n[Syslog]\n", 1, ": malformed INI file: key \"Output\" stands before any"},
      {"default.ini", "[MEMORY]\nCount\n", 1, ":2: malformed INI file: '=' character not found"},
      {"default.ini", "[CPU]\nInterval=sixty\n", 1, ": [CPU] Interval=\"sixty\" is not"},
  };
  for (const auto& c : cases) {
    std::filesystem::remove_all(m_strStateDir);
    std::filesystem::remove(Path("default.ini"));
    if (c.pszFile) WriteFile(Path(c.pszFile), c.strText);
    Velmora_LoggerConf conf;
    CaptureStderr();
    int nResult = 1;
    std::string strMessage;
    try {
      nResult = CToolServiceLoggerAcc().GetParameter(conf);
    } catch (const devhost::CServiceFailure& e) {
      strMessage = e.what();
    }
    EXPECT_EQ(nResult, c.nResult) << c.strText;
    strMessage += GetCapturedStderr();
    if (c.expected) {
      EXPECT_NE(strMessage.find((c.pszFile ? Path(c.pszFile) : "") + c.expected), std::string::npos) << strMessage;
    }
    const bool bCopied = c.nResult == 0 || (c.pszFile && Path(c.pszFile) == Effective());
    EXPECT_EQ(ReadFile(Effective()), bCopied ? c.strText : "") << "a broken default is not copied";
    EXPECT_EQ(std::filesystem::exists(m_strStateDir), c.nResult != 176) << c.strText;
  }
  EXPECT_THROW(CToolServiceLoggerAcc().initWrite(m_nSelf), devhost::CServiceFailure) << "nor used by an edit";
}

// Edits go to a copy of the effective configuration made on the first write;
// a save replaces the effective file with the record and leaves the edits;
// a discard removes them and the session's claim.
TEST_F(ToolServiceTest, EditSaveAndDiscardTouchOnlyTheirOwnFile) {
  Install();
  CToolServiceLoggerAcc acc;
  ASSERT_EQ(acc.initWrite(m_nSelf), 0);
  Velmora_LoggerConf conf;
  std::string strValue;
  EXPECT_FALSE(acc.ReadConfFile(conf));

  ASSERT_TRUE(acc.WriteString("CPU", "Interval", "30"));
  ASSERT_TRUE(acc.WriteString("FSNAME-1", "Mount", "/data"));
  EXPECT_EQ(ReadFile(Effective()), kDefaultText);
  EXPECT_EQ(ReadFile(Owner()).rfind(std::to_string(m_nSelf) + " ", 0), 0u) << "the session is recorded";
  ASSERT_TRUE(acc.GetString("CPU", "Interval", strValue));
  EXPECT_EQ(strValue, "30");
  ASSERT_TRUE(acc.ReadConfFile(conf));
  EXPECT_EQ(conf.cpu.nThreshold, 90) << "the copy keeps the effective values";
  EXPECT_EQ(conf.fs.vecThreshold.size(), 1u);

  const std::string strPending = ReadFile(Pending());
  Velmora_LoggerConf saved;  // without MEMORY values
  saved.cpu.nInterval = 120;
  saved.fs.vecThreshold.resize(2);
  ASSERT_EQ(acc.SetParameter(saved), 0);
  EXPECT_EQ(ReadFile(Pending()), strPending);
  ASSERT_EQ(acc.GetParameter(conf), 0);
  EXPECT_EQ(conf.cpu.nInterval, 120);
  EXPECT_EQ(conf.mem.nInterval, 0) << "the record replaces the file, the default's 60 included";
  EXPECT_EQ(conf.fs.vecThreshold.size(), 2u);

  EXPECT_TRUE(acc.Discard());
  EXPECT_EQ(devhost_test::Names(m_strStateDir), (std::vector<std::string>{"logger.ini", "logger.lock"}));
  EXPECT_TRUE(acc.Discard()) << "nothing pending";
  WriteFile(Pending() + "/inside", "a pending file that cannot be removed");
  try {
    acc.Discard();
    ADD_FAILURE() << "a pending file that cannot be removed fails the discard";
  } catch (const devhost::CServiceFailure& e) {
    EXPECT_NE(std::string(e.what()).find("cannot remove " + Pending()), std::string::npos) << e.what();
  }
}

// Pending edits belong to the session recorded in the owner file while that
// process lives; any other record can be taken over. An empty pending file,
// what a power cut can leave of an edit, counts as no edits.
TEST_F(ToolServiceTest, PendingEditsBelongToOneLiveSession) {
  const std::string strPendingText = "[CPU]\nInterval=45\n";
  const std::string strSelf = std::to_string(m_nSelf) + "\n";
  const std::string strLive = std::to_string(getppid()) + "\n";
  // The live parent's id with a start time that is not its own.
  const std::string strLiveReused = std::to_string(getppid()) + " 1\n";
  const struct {
    const char* name;
    const char* pending;  // content of the pending file; nullptr = none
    const char* owner;    // content of the owner file; nullptr = none
    bool bMayEdit;        // after initWrite; when not, initWrite answers -1
    bool bFromEffective;  // the edit starts from a copy of the effective file
  } cases[] = {
      {"nothing pending, stale owner", nullptr, strLive.c_str(), true, true},
      {"empty pending file of a live session", "", strLive.c_str(), true, true},
      {"own edits", strPendingText.c_str(), strSelf.c_str(), true, false},
      {"edits of a live session", strPendingText.c_str(), strLive.c_str(), false, false},
      {"edits of a process that no longer runs", strPendingText.c_str(), "2147483647\n", true, false},
      {"edits of an ended session whose id runs again", strPendingText.c_str(), strLiveReused.c_str(), true, false},
      {"edits without owner", strPendingText.c_str(), nullptr, true, false},
      {"owner file with garbage", strPendingText.c_str(), "12 x\n", true, false},
  };
  for (const auto& c : cases) {
    Install();
    if (c.pending) WriteFile(Pending(), c.pending);
    if (c.owner) WriteFile(Owner(), c.owner);
    CToolServiceLoggerAcc acc;
    EXPECT_EQ(acc.initWrite(m_nSelf), c.bMayEdit ? 0 : -1) << c.name;
    EXPECT_EQ(acc.CheckProcessId(m_nSelf), c.bMayEdit) << c.name;
    CaptureStderr();
    EXPECT_EQ(acc.WriteString("CPU", "Count", "4"), c.bMayEdit) << c.name;
    GetCapturedStderr();
    if (c.bMayEdit) {
      int nOwner = 0;
      std::istringstream(ReadFile(Owner())) >> nOwner;
      EXPECT_EQ(nOwner, m_nSelf) << c.name;
    } else {
      EXPECT_EQ(ReadFile(Owner()), c.owner) << c.name;
    }
    if (!c.bMayEdit) {
      EXPECT_EQ(ReadFile(Pending()), strPendingText) << c.name;
    }
    std::string strValue;
    EXPECT_EQ(acc.GetString("MEMORY", "Interval", strValue), c.bFromEffective) << c.name;
  }
}

}  // namespace
