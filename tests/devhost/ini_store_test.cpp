// INI files on disk: malformed files, exact names, atomic replacement.
#include "devhost/lib/ini_store.h"

#include "tests/devhost/logger_state_fixture.h"

namespace {

using devhost::IniRead;
using devhost::IniTree;
using devhost_test::ReadFile;

class IniStoreTest : public LoggerStateTest {};

TEST_F(IniStoreTest, MalformedFileIsRefusedNamingFileAndLine) {
  const struct {
    const char* text;
    const char* expected;  // in the message, after the file's path
  } cases[] = {
      {"[CPU]\nInterval=1\nCount=2\nInterval=3\n", ":4: malformed INI file: duplicate key"},
      {"[CPU]\nCount=2\n; note\n[CPU]\n", ":4: malformed INI file: duplicate section"},
      {"[CPU]\nInterval 60\n", ":2: malformed INI file: '=' character not found"},
      {"Output=0x11\n[Syslog]\n", ": malformed INI file: key \"Output\" stands before any section"},
  };
  const std::string strPath = Path("malformed.ini");
  for (const auto& c : cases) {
    WriteText(strPath, c.text);
    IniTree tree;
    std::string strError;
    EXPECT_EQ(devhost::ReadIniFile(strPath, tree, strError), IniRead::kError) << c.text;
    EXPECT_NE(strError.find(strPath + c.expected), std::string::npos) << c.text << " gave: " << strError;
  }
}

TEST_F(IniStoreTest, NamesWithDotsAreNotSplitIntoPaths) {
  IniTree tree;
  devhost::SetIniValue(tree, "v1.2", "key.x", "1");
  devhost::SetIniValue(tree, "v1.2", "key.x", "2");
  std::string strError;
  ASSERT_TRUE(devhost::WriteIniFile(Path("dots.ini"), tree, strError)) << strError;
  EXPECT_EQ(ReadFile(Path("dots.ini")), "[v1.2]\nkey.x=2\n");
  IniTree read;
  ASSERT_EQ(devhost::ReadIniFile(Path("dots.ini"), read, strError), IniRead::kOk) << strError;
  ASSERT_NE(devhost::FindIniValue(read, "v1.2", "key.x"), nullptr);
  EXPECT_EQ(*devhost::FindIniValue(read, "v1.2", "key.x"), "2");
}

TEST_F(IniStoreTest, OnlyEntriesThatReadBackUnchangedAreStorable) {
  const struct {
    const char* section;
    const char* key;
    const char* value;
    bool bStorable;
  } cases[] = {
      {"FSNAME-1", "Mount", "/mnt/my disk", true}, {"CPU", "Interval", "", true}, {"", "Key", "v", false},
      {"CP]U", "Key", "v", false},                 {"CPU", "a=b", "v", false},    {"CPU", ";Key", "v", false},
      {"CPU", "Key", "a\nb", false},               {"CPU", "Key", " v", false},   {"CPU", "Key ", "v", false},
  };
  for (const auto& c : cases) {
    std::string strError;
    EXPECT_EQ(devhost::isStorableIniEntry(c.section, c.key, c.value, strError), c.bStorable)
        << "[" << c.section << "] " << c.key << "=" << c.value;
  }
}

TEST_F(IniStoreTest, ReplacementLeavesOnlyTheNewFile) {
  const struct {
    devhost::Flush eFlush;
    bool bTargetExists;
  } cases[] = {
      {devhost::Flush::kToDisk, false},
      {devhost::Flush::kToDisk, true},
      {devhost::Flush::kNone, false},
      {devhost::Flush::kNone, true},  // the two names are swapped, the old content removed
  };
  for (const auto& c : cases) {
    std::filesystem::remove_all(m_strStateDir);
    std::filesystem::create_directories(m_strStateDir);
    const std::string strPath = StateFile("conf.ini");
    if (c.bTargetExists) WriteText(strPath, "[CPU]\nInterval=60\n");
    std::string strError;
    ASSERT_TRUE(devhost::WriteFileAtomically(strPath, "[CPU]\nInterval=30\n", strError, c.eFlush)) << strError;
    EXPECT_EQ(ReadFile(strPath), "[CPU]\nInterval=30\n");
    EXPECT_EQ(std::filesystem::status(strPath).permissions(), std::filesystem::perms(0644));
    EXPECT_EQ(Names(m_strStateDir), std::vector<std::string>{"conf.ini"});
  }
}

TEST_F(IniStoreTest, FailedReplacementLeavesTheOldFileAndNoTemporaryFile) {
  const std::string strOld = "; kept as it is\n[CPU]\nInterval=60\n";
  const struct {
    const char* name;
    bool bTargetIsDirectory;  // a directory that is not empty cannot be renamed over
    rlim_t nSizeLimit;        // 0 = none
    devhost::Flush eFlush;
    const char* expected;
  } cases[] = {
      {"write fails", false, 8, devhost::Flush::kToDisk, "cannot write the temporary file"},
      {"rename fails", true, 0, devhost::Flush::kToDisk, "cannot rename the temporary file"},
      {"unflushed, rename fails", true, 0, devhost::Flush::kNone, "cannot rename the temporary file"},
  };
  for (const auto& c : cases) {
    std::filesystem::remove_all(m_strStateDir);
    const std::string strPath = StateFile("conf.ini");
    const std::string strOldFile = c.bTargetIsDirectory ? strPath + "/inside" : strPath;
    WriteText(strOldFile, strOld);
    std::string strError;
    {
      std::unique_ptr<CFileSizeLimit> limit(c.nSizeLimit ? new CFileSizeLimit(c.nSizeLimit) : nullptr);
      EXPECT_FALSE(devhost::WriteFileAtomically(strPath, std::string(4096, 'x'), strError, c.eFlush)) << c.name;
    }
    EXPECT_NE(strError.find("cannot replace " + strPath + ": " + c.expected), std::string::npos) << strError;
    EXPECT_EQ(ReadFile(strOldFile), strOld) << c.name;
    EXPECT_EQ(Names(m_strStateDir), std::vector<std::string>{"conf.ini"}) << c.name;
  }
}

}  // namespace
