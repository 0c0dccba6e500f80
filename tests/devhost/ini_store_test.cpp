// INI files on disk: storable entries, atomic replacement, and the refusal
// of malformed text with the line at fault.
#include "devhost/files/ini_store.h"

#include <signal.h>
#include <sys/resource.h>

#include "tests/devhost/devhost_test_support.h"

namespace {

using devhost_test::ReadFile;

class IniStoreTest : public devhost_test::DevhostTest {};

TEST_F(IniStoreTest, OnlyEntriesThatReadBackUnchangedAreStorable) {
  const struct {
    const char* section;
    const char* key;
    const char* value;
    bool bStorable;
  } cases[] = {
      {"FSNAME-1", "Mount", "/mnt/my disk", true},
      {"CP]U", "Key", "v", false},
      {"CPU", "a=b", "v", false},
      {"CPU", ";Key", "v", false},
      {"CPU", "Key", "a\nb", false},
      {"CPU", "Key", " v", false},
  };
  for (const auto& c : cases) {
    std::string strError;
    EXPECT_EQ(devhost::isStorableIniEntry(c.section, c.key, c.value, strError), c.bStorable)
        << "[" << c.section << "] " << c.key << "=" << c.value;
  }
}

// A replacement leaves the new file, or on failure the old one, and never a
// temporary file. Unflushed, the two names are swapped and the old content
// removed.
TEST_F(IniStoreTest, ReplacementLeavesTheNewOrTheOldFileAndNoTemporaryFile) {
  const std::string strOld = "; kept as it is\n[CPU]\nInterval=60\n", strNew = "[CPU]\nInterval=30\n";
  const struct {
    const char* name;
    devhost::Flush eFlush;
    const char* pszOld;    // what holds the old content; a directory that is not empty cannot be renamed over
    rlim_t nSizeLimit;     // 0 = none
    const char* expected;  // the failed step; nullptr = replaced
  } cases[] = {
      {"new file", devhost::Flush::kToDisk, nullptr, 0, nullptr},
      {"over a file", devhost::Flush::kToDisk, "conf.ini", 0, nullptr},
      {"new file, unflushed", devhost::Flush::kNone, nullptr, 0, nullptr},
      {"over a file, unflushed", devhost::Flush::kNone, "conf.ini", 0, nullptr},
      {"write fails", devhost::Flush::kToDisk, "conf.ini", 8, "cannot write the temporary file"},
      {"rename fails", devhost::Flush::kToDisk, "conf.ini/inside", 0, "cannot rename the temporary file"},
      {"unflushed, rename fails", devhost::Flush::kNone, "conf.ini/inside", 0, "cannot rename the temporary file"},
  };
  const std::string strPath = StateFile("conf.ini");
  for (const auto& c : cases) {
    std::filesystem::remove_all(m_strStateDir);
    std::filesystem::create_directories(m_strStateDir);
    if (c.pszOld) devhost_test::WriteFile(StateFile(c.pszOld), strOld);
    std::string strError;
    // Past a lowered file size limit a write fails with EFBIG, a failure
    // that needs no special permissions.
    rlimit saved;
    getrlimit(RLIMIT_FSIZE, &saved);
    rlimit limited = {c.nSizeLimit ? c.nSizeLimit : saved.rlim_cur, saved.rlim_max};
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limited);
    const bool bReplaced = devhost::WriteFileAtomically(strPath, strNew, strError, c.eFlush);
    setrlimit(RLIMIT_FSIZE, &saved);
    EXPECT_EQ(devhost_test::Names(m_strStateDir), std::vector<std::string>{"conf.ini"}) << c.name;
    if (c.expected) {
      EXPECT_FALSE(bReplaced) << c.name;
      EXPECT_NE(strError.find("cannot replace " + strPath + ": " + c.expected), std::string::npos) << strError;
      EXPECT_EQ(ReadFile(StateFile(c.pszOld)), strOld) << c.name;
    } else {
      EXPECT_TRUE(bReplaced) << c.name << ": " << strError;
      EXPECT_EQ(ReadFile(strPath), strNew) << c.name;
      EXPECT_EQ(std::filesystem::status(strPath).permissions(), std::filesystem::perms(0644)) << c.name;
    }
  }
}

// A malformed file is refused with its name and the line at fault, never
// read in part; names are looked up whole, so a "." in them is no path.
TEST_F(IniStoreTest, MalformedTextIsRefusedByLineAndNamesAreWhole) {
  const struct {
    const char* text;
    const char* expected;  // the message after "conf.ini"; "" = parsed
  } cases[] = {
      {"; comment\n[A.B]\nx.y = 1\n", ""},
      {"[A]\nx=1\n[A]\ny=2\n", ":3: malformed INI file: duplicate section name"},
      {"[A]\nx=1\nx=2\n", ":3: malformed INI file: duplicate key name"},
      {"[A]\nno value here\n", ":2: malformed INI file: '=' character not found in line"},
      {"[A\nx=1\n", ":1: malformed INI file: unmatched '['"},
      {"x=1\n[A]\ny=2\n", ": malformed INI file: key \"x\" stands before any section"},
  };
  for (const auto& c : cases) {
    devhost::IniTree tree;
    std::string strError;
    const bool bParsed = devhost::ParseIniText(c.text, "conf.ini", tree, strError);
    EXPECT_EQ(bParsed ? std::string() : strError, *c.expected ? "conf.ini" + std::string(c.expected) : "") << c.text;
    if (bParsed) {
      const std::string* pValue = devhost::FindIniValue(tree, "A.B", "x.y");
      ASSERT_NE(pValue, nullptr);
      EXPECT_EQ(*pValue, "1");
      EXPECT_EQ(devhost::FindIniValue(tree, "A", "B.x.y"), nullptr);
    }
  }
}

}  // namespace
