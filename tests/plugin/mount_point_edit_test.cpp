// The mount points: the mounted file-system check (isMounted and
// CheckEffectiveFileSystem) and the list (isMultiplexDefinition and CmdMount).
#include <gtest/gtest.h>
#include <unistd.h>

#include <set>

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
  EXPECT_EQ(scripted::callsOf("ExecSystemCmd").at(0).vecArgs, Lines{"/bin/mount"});
  ASSERT_EQ(scripted::mountOutputPaths().size(), 1u);
  EXPECT_NE(::access(scripted::mountOutputPaths()[0].c_str(), F_OK), 0) << "the output file is removed";
}

INSTANTIATE_TEST_SUITE_P(
    Listings, ListingTest,
    ::testing::Values(
        ListingCase{"exact directory", kDataLine, "/data", true, {"/data"}},
        ListingCase{"prefix of the directory", kDataLine, "/dat", false, {"/data"}},
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

TEST_F(PluginTest, AnUnreadableListingIsNotMountedWithoutALeaveLine) {
  scripted::script().bMountFileUnreadable = true;
  CLoggerConfigCmd cmd;
  scripted::calls().clear();
  EXPECT_FALSE(cmd.isMounted("/data"));
  EXPECT_EQ(scripted::traces(), (Lines{"4|[ENTER] " + kSigIsMounted + " /data",
                                       "2|" + kSigIsMounted + " Failed to open file (/nonexistent/scripted-host/mount-output)."}));
}

// CheckEffectiveFileSystem: a disk monitor that is on needs one mounted
// entry that is switched on; every entry is checked, whatever its switch.
TEST_F(PluginTest, CheckEffectiveFileSystemNeedsOneMountedSwitchedOnEntry) {
  const struct {
    const char* name;
    int fsAvailable;
    std::vector<Velmora_LoggerFsThresholdConf> entries;
    bool unreadable;
    int expected;
    Lines checked;  // mount points given to isMounted, in order
  } kCases[] = {
      {"monitor off", 0x10, {FsEntry(1, 90, 0x11, "/data")}, false, 0, {}},
      {"monitor on with no entries", 0x11, {}, false, 1, {}},
      {"mounted entries all off", 0x11, {FsEntry(1, 90, 0x10, "/data"), FsEntry(2, 80, 0, "/srv")}, false, 1, {"/data", "/srv"}},
      {"one mounted entry on", 0x11, {FsEntry(1, 90, 0x10, "/data"), FsEntry(2, 80, 0x11, "/srv"), FsEntry(3, 70, 0x11, "/gone")}, false,
       0, {"/data", "/srv", "/gone"}},
      {"on but not mounted does not count", 0x11, {FsEntry(1, 90, 0x11, "/gone"), FsEntry(2, 80, 0x11, "/data/")}, false, 1,
       {"/gone", "/data/"}},
      {"switch on by its low bits", 0x01, {FsEntry(1, 90, 0x01, "/data")}, false, 0, {"/data"}},
      {"listing unreadable", 0x11, {FsEntry(1, 90, 0x11, "/data")}, true, 1, {"/data"}}};
  for (const auto& c : kCases) {
    scripted::reset();
    scripted::script().strMountListing = "/dev/sda1 on / type ext4 (rw)\n" + kDataLine + "/dev/sdc1 on /srv type xfs (rw)\n";
    scripted::script().bMountFileUnreadable = c.unreadable;
    Velmora_LoggerConf conf;
    conf.fs.nAvailable = c.fsAvailable;
    conf.fs.vecThreshold = c.entries;
    CLoggerConfigCmd cmd;
    scripted::calls().clear();

    EXPECT_EQ(cmd.CheckEffectiveFileSystem(conf), c.expected) << c.name;
    Lines vecExpected{"4|[ENTER] " + kSigCheckEffective}, vecSeen;
    for (const std::string& strMount : c.checked) vecExpected.push_back("4|[ENTER] " + kSigIsMounted + " " + strMount);
    vecExpected.push_back("4|[LEAVE] " + kSigCheckEffective + ", rc=" + std::to_string(c.expected));
    for (const std::string& strLine : scripted::traces())
      if (strLine.find("[LEAVE] bool") == std::string::npos && strLine.rfind("4|", 0) == 0) vecSeen.push_back(strLine);
    EXPECT_EQ(vecSeen, vecExpected) << c.name;
    EXPECT_EQ(scripted::callsOf("ExecSystemCmd").size(), c.checked.size()) << c.name;
  }
}

// ---- The mount-point list ----


const char kNotMounted[] = "MSG_CLI_ERROR_LOGGER_MP|0|";
const char kLeaveMount[] = "4|[LEAVE] int CLoggerConfigCmd::CmdMount()";
const std::string kSigMultiplex = "bool CLoggerConfigCmd::isMultiplexDefinition(std::string, Velmora_LoggerFsThresholdConf&)";

// /data mounted, the given pending list and "NumFileSys" text (nullptr: unreadable).
void ScriptList(const std::vector<Velmora_LoggerFsThresholdConf>& vecListed, const char* pszNumFileSys) {
  scripted::script().strMountListing = "/dev/sda1 on / type ext4 (rw)\n/dev/sdb1 on /data type ext3 (rw)\n";
  scripted::script().bReadConfFileResult = true;
  scripted::script().pending.fs.vecThreshold = vecListed;
  if (pszNumFileSys) scripted::script().mapStrings["FILESYS/NumFileSys"] = pszNumFileSys;
  scripted::script().mapShowResult = {{"MSG_CLI_ERROR_APPLICATION", 7}, {"MSG_CLI_ERROR_LOGGER_MP", 6}, {"MSG_CLI_HOLD_PARAM", 5}};
}

// A command for the mount point with the given switch and threshold.
void Prepare(CLoggerConfigCmd& cmd, const std::string& strMount, int nOnOff, int nThreshold) {
  cmd.m_strMountPoint = strMount;
  cmd.m_nOnOff = nOnOff;
  cmd.m_nThreshold = nThreshold;
  scripted::calls().clear();
}

struct MountCase {
  const char* name;
  const char* pszMountPoint;
  int nOnOff, nThreshold;
  std::vector<Velmora_LoggerFsThresholdConf> listed;  // the pending list
  const char* pszNumFileSys;
  std::set<std::string> failWrites;
  int nExpected;
  std::string writes;
  Lines shows;
};
KTL_CASE_FIXTURE(CmdMountTest, MountCase);

TEST_P(CmdMountTest, AddsOrRewritesTheEntry) {
  const MountCase& c = GetParam();
  ScriptList(c.listed, c.pszNumFileSys);
  scripted::script().setFailWrite = c.failWrites;
  CLoggerConfigCmd cmd;
  Prepare(cmd, c.pszMountPoint, c.nOnOff, c.nThreshold);

  EXPECT_EQ(cmd.CmdMount(), c.nExpected);
  EXPECT_EQ(Writes(), Words(c.writes));
  EXPECT_EQ(scripted::shows(), c.shows);
  EXPECT_EQ(scripted::traces().back() == kLeaveMount, c.nExpected == 0);
  // The mount check comes first, and once.
  EXPECT_EQ(scripted::callNames()[0], "ExecSystemCmd");
  EXPECT_EQ(scripted::callsOf("ExecSystemCmd").size(), 1u);
}

const std::vector<Velmora_LoggerFsThresholdConf> kDataAt3{FsEntry(1, 80, 0x11, "/home"), FsEntry(3, 90, 0x11, "/data")};
const char kRewrite3[] = "FSNAME-3/Available=0x11 FSNAME-3/Threshold=90 FSNAME-3/Mount=/data";
const char kNew3[] = "FILESYS/NumFileSys=3 FSNAME-3/Available=0x11 FSNAME-3/Threshold=90 FSNAME-3/Mount=/data";

INSTANTIATE_TEST_SUITE_P(
    List, CmdMountTest,
    ::testing::Values(
        MountCase{"new entry", "/data", 0x11, 90, {FsEntry(1, 80, 0x11, "/home")}, "2", {}, 0, kNew3, {kHold}},
        MountCase{"listed entry rewritten, count untouched", "/data", 0x11, 90, kDataAt3, "7", {}, 0, kRewrite3, {kHold}},
        MountCase{"switched off keeps the threshold", "/data", 0x10, -1, {FsEntry(3, 90, 0x10, "/data")}, "3", {}, 0,
                  "FSNAME-3/Available=0x10 FSNAME-3/Mount=/data", {kHold}},
        MountCase{"listed without a number gets a new one", "/data", 0x11, -1, {FsEntry(-1, 90, 0x11, "/data")}, "4", {}, 0,
                  "FILESYS/NumFileSys=5 FSNAME-5/Available=0x11 FSNAME-5/Mount=/data", {kHold}},
        MountCase{"not mounted writes nothing", "/srv", 0x11, 90, {}, "2", {}, 6, "", {kNotMounted}},
        MountCase{"count unreadable writes nothing", "/data", 0x11, 90, {}, nullptr, {}, 7, "", {kAppError}},
        // Failed writes are not examined: the entry is written as far as it goes.
        MountCase{"count write fails", "/data", 0x11, 90, {}, "2", {"FILESYS/NumFileSys"}, 0, kNew3, {kAppError, kHold}},
        MountCase{"Available write fails", "/data", 0x11, 90, kDataAt3, "3", {"FSNAME-3/Available"}, 0, kRewrite3, {kAppError, kHold}},
        MountCase{"Threshold write fails", "/data", 0x11, 90, kDataAt3, "3", {"FSNAME-3/Threshold"}, 0, kRewrite3, {kAppError, kHold}},
        MountCase{"Mount write fails silently", "/data", 0x11, 90, kDataAt3, "3", {"FSNAME-3/Mount"}, 0, kRewrite3, {kHold}}),
    CaseName<MountCase>);

// "NumFileSys" is read the way strtol reads decimal text.
TEST_F(PluginTest, NewEntryGetsTheNextNumber) {
  for (const auto& c : std::vector<std::pair<std::string, std::string>>{{"", "1"}, {" \t+12", "13"}, {"9 entries", "10"}, {"- 5", "1"}}) {
    scripted::reset();
    ScriptList({}, c.first.c_str());
    CLoggerConfigCmd cmd;
    Prepare(cmd, "/data", 0x10, -1);
    EXPECT_EQ(cmd.CmdMount(), 0) << c.first;
    EXPECT_EQ(Writes(), Words("FILESYS/NumFileSys=" + c.second + " FSNAME-" + c.second + "/Available=0x10 FSNAME-" + c.second +
                              "/Mount=/data"))
        << c.first;
  }
}

TEST_F(PluginTest, FirstMatchIsCopiedWholeAndNoMatchLeavesTheEntryAlone) {
  ScriptList({FsEntry(4, 70, 0x10, "/DATA"), FsEntry(5, 75, 0x11, "/data"), FsEntry(6, 99, 0x10, "/data")}, "6");
  CLoggerConfigCmd cmd;
  Velmora_LoggerFsThresholdConf entry = FsEntry(0, 0, 0, "");
  EXPECT_TRUE(cmd.isMultiplexDefinition("/data", entry));
  EXPECT_EQ(Describe({entry}), Lines{"/data:75:17:5"});
  Velmora_LoggerFsThresholdConf untouched = FsEntry(8, 1, 2, "keep");
  EXPECT_FALSE(cmd.isMultiplexDefinition("/dat", untouched));
  EXPECT_EQ(Describe({untouched}), Lines{"keep:1:2:8"});
}

TEST_F(PluginTest, RewriteIsTracedWithTheMountPointLiterally) {
  ScriptList({FsEntry(2, 50, 0x10, "/mnt/%d%s")}, "2");
  scripted::script().strMountListing = "/dev/sdb1 on /mnt/%d%s type ext3 (rw)\n";
  CLoggerConfigCmd cmd;
  Prepare(cmd, "/mnt/%d%s", 0x11, -1);
  EXPECT_EQ(cmd.CmdMount(), 0);
  Lines vecOwn;  // isMounted's lines left out
  for (const std::string& strLine : scripted::traces())
    if (strLine.find("isMounted") == std::string::npos) vecOwn.push_back(strLine);
  EXPECT_EQ(vecOwn, (Lines{"4|[ENTER] int CLoggerConfigCmd::CmdMount()", "4|[ENTER] " + kSigMultiplex + " /mnt/%d%s",
                           "1|" + kSigMultiplex + " Mountpoint(/mnt/%d%s) is already exist (threshold=50, 0x10)",
                           "4|[LEAVE] " + kSigMultiplex + ", rc=TRUE", kLeaveMount}));
}

}  // namespace
