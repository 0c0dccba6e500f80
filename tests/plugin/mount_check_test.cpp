// The mounted file-system check: isMounted and CheckEffectiveFileSystem.
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "tests/plugin/plugin_test_support.h"

namespace {

const std::string kSigIsMounted = "bool CLoggerConfigCmd::isMounted(std::string)";
const std::string kSigCheckEffective = "int CLoggerConfigCmd::CheckEffectiveFileSystem(Velmora_LoggerConf&)";
const std::string kDataLine = "/dev/sdb1 on /data type ext3 (rw)\n";

// A listing line of exactly nLength characters (line end not counted) with
// no " type": its directory runs to the end.
const std::string kLongHead = "/dev/sdz on ";
std::string LineOfLength(size_t nLength) { return kLongHead + "/" + std::string(nLength - kLongHead.size() - 1, 'a'); }
std::string DirectoryOfLength(size_t nLength) { return LineOfLength(nLength).substr(kLongHead.size()); }

struct ListingCase {
  const char* name;
  std::string listing, mountPoint;
  bool expected;
  Lines seen;  // the directories traced, in order
};
KTL_CASE_FIXTURE(ListingTest, ListingCase);

TEST_P(ListingTest, MatchesTheDirectoryOfALineExactly) {
  const ListingCase& c = GetParam();
  scripted::script().strMountListing = c.listing;
  CLoggerConfigCmd cmd;
  scripted::calls().clear();

  EXPECT_EQ(cmd.isMounted(c.mountPoint), c.expected);
  Lines vecExpected{"4|[ENTER] " + kSigIsMounted + " " + c.mountPoint};
  for (const std::string& strSeen : c.seen) vecExpected.push_back("1|" + kSigIsMounted + " mount exp=" + c.mountPoint + ", res=" + strSeen);
  vecExpected.push_back("4|[LEAVE] " + kSigIsMounted + ", rc=" + (c.expected ? "TRUE" : "FALSE"));
  EXPECT_EQ(scripted::traces(), vecExpected);
  const auto vecExec = scripted::callsOf("ExecSystemCmd");
  ASSERT_EQ(vecExec.size(), 1u);
  EXPECT_EQ(vecExec[0].vecArgs[0], "/bin/mount");
  ASSERT_EQ(scripted::mountOutputPaths().size(), 1u);
  EXPECT_NE(::access(scripted::mountOutputPaths()[0].c_str(), F_OK), 0) << "the output file is removed";
}

INSTANTIATE_TEST_SUITE_P(
    Listings, ListingTest,
    ::testing::Values(
        ListingCase{"exact directory", kDataLine, "/data", true, {"/data"}},
        ListingCase{"prefix of the directory", kDataLine, "/dat", false, {"/data"}},
        ListingCase{"trailing slash", kDataLine, "/data/", false, {"/data"}},
        ListingCase{"no type runs to the line end", "/dev/sdb1 on /data\n", "/data", true, {"/data"}},
        ListingCase{"no type keeps the rest", "/dev/sdb1 on /data (rw)\n", "/data", false, {"/data (rw)"}},
        ListingCase{"type searched after on", "x type y on /data type ext4\n", "/data", true, {"/data"}},
        ListingCase{"first on opens the directory", "a on b on /data type ext4\n", "/data", false, {"b on /data"}},
        ListingCase{"lines without on are skipped", "none\n\nproc /proc proc\n/dev/sda1 on / type ext4 (rw)\n" + kDataLine, "/data",
                    true, {"/", "/data"}},
        ListingCase{"reading stops at the match", kDataLine + "/dev/sdc1 on /srv type xfs\n", "/data", true, {"/data"}},
        // The last read reaches the end of the file: a final line without its line end is not examined.
        ListingCase{"last line without line end", "/dev/sda1 on / type ext4\n/dev/sdb1 on /data type ext3", "/data", false, {"/"}},
        ListingCase{"percent in the mount point", "/dev/sdb1 on /d%sx type ext3\n", "/d%sx", true, {"/d%sx"}},
        // 1023 characters fit; the line after it is still read.
        ListingCase{"line of 1023 characters", LineOfLength(1023) + "\n" + kDataLine, "/data", true, {DirectoryOfLength(1023), "/data"}},
        // A longer line is examined cut to 1023 characters and ends the reading.
        ListingCase{"line of 1024 characters ends the reading", LineOfLength(1024) + "\n" + kDataLine, "/data", false,
                    {DirectoryOfLength(1023)}},
        ListingCase{"directory cut at 1023 characters", LineOfLength(1500) + "\n", DirectoryOfLength(1023), true,
                    {DirectoryOfLength(1023)}}),
    CaseName<ListingCase>);

class MountCheckTest : public PluginTest {};

TEST_F(MountCheckTest, AnUnreadableListingIsNotMountedWithoutALeaveLine) {
  scripted::script().bMountFileUnreadable = true;
  CLoggerConfigCmd cmd;
  scripted::calls().clear();
  EXPECT_FALSE(cmd.isMounted("/data"));
  EXPECT_EQ(scripted::traces(), (Lines{"4|[ENTER] " + kSigIsMounted + " /data",
                                       "2|" + kSigIsMounted + " Failed to open file (/nonexistent/scripted-host/mount-output)."}));
}

// CheckEffectiveFileSystem over the disk monitor's switch and its entries.
struct EffectiveCase {
  const char* name;
  int fsAvailable;
  std::vector<Velmora_LoggerFsThresholdConf> entries;
  bool unreadable;
  int expected;
  Lines checked;  // mount points given to isMounted, in order
};
KTL_CASE_FIXTURE(EffectiveTest, EffectiveCase);

TEST_P(EffectiveTest, NeedsOneMountedSwitchedOnEntryWhenTheMonitorIsOn) {
  const EffectiveCase& c = GetParam();
  scripted::script().strMountListing = "/dev/sda1 on / type ext4 (rw)\n" + kDataLine + "/dev/sdc1 on /srv type xfs (rw)\n";
  scripted::script().bMountFileUnreadable = c.unreadable;
  Velmora_LoggerConf conf;
  conf.fs.nAvailable = c.fsAvailable;
  conf.fs.vecThreshold = c.entries;
  CLoggerConfigCmd cmd;
  scripted::calls().clear();

  EXPECT_EQ(cmd.CheckEffectiveFileSystem(conf), c.expected);
  Lines vecEnterLeave{"4|[ENTER] " + kSigCheckEffective};
  for (const std::string& strMount : c.checked) vecEnterLeave.push_back("4|[ENTER] " + kSigIsMounted + " " + strMount);
  vecEnterLeave.push_back("4|[LEAVE] " + kSigCheckEffective + ", rc=" + std::to_string(c.expected));
  Lines vecSeen;
  for (const std::string& strLine : scripted::traces())
    if (strLine.find("[LEAVE] bool") == std::string::npos && strLine.rfind("4|", 0) == 0) vecSeen.push_back(strLine);
  EXPECT_EQ(vecSeen, vecEnterLeave);
  EXPECT_EQ(scripted::callsOf("ExecSystemCmd").size(), c.checked.size());
}

INSTANTIATE_TEST_SUITE_P(
    Switches, EffectiveTest,
    ::testing::Values(
        EffectiveCase{"monitor off", 0x10, {FsEntry(1, 90, 0x11, "/data")}, false, 0, {}},
        EffectiveCase{"monitor not set", 0, {FsEntry(1, 90, 0x11, "/nowhere")}, false, 0, {}},
        EffectiveCase{"monitor on with no entries", 0x11, {}, false, 1, {}},
        EffectiveCase{"mounted entries all off", 0x11, {FsEntry(1, 90, 0x10, "/data"), FsEntry(2, 80, 0, "/srv")}, false, 1, {"/data", "/srv"}},
        EffectiveCase{"one mounted entry on", 0x11,
                      {FsEntry(1, 90, 0x10, "/data"), FsEntry(2, 80, 0x11, "/srv"), FsEntry(3, 70, 0x11, "/gone")}, false, 0,
                      {"/data", "/srv", "/gone"}},
        EffectiveCase{"on but not mounted does not count", 0x11, {FsEntry(1, 90, 0x11, "/gone"), FsEntry(2, 80, 0x11, "/data/")}, false, 1,
                      {"/gone", "/data/"}},
        EffectiveCase{"switch on by its low bits", 0x01, {FsEntry(1, 90, 0x01, "/data")}, false, 0, {"/data"}},
        EffectiveCase{"listing unreadable", 0x11, {FsEntry(1, 90, 0x11, "/data")}, true, 1, {"/data"}}),
    CaseName<EffectiveCase>);

}  // namespace
