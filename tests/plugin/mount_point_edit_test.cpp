// The mount points: the mounted file-system check (isMounted; the check of a
// whole record is covered by Save's cases) and the list (isMultiplexDefinition
// and CmdMount).
#include <gtest/gtest.h>
#include <unistd.h>

#include <set>

#include "tests/plugin/plugin_test_support.h"

namespace {
const std::string kSigIsMounted = "bool CLoggerConfigCmd::isMounted(std::string)";
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
  EXPECT_NE(::access(scripted::mountOutputPaths().at(0).c_str(), F_OK), 0) << "the output file is removed";
}

INSTANTIATE_TEST_SUITE_P(
    Listings, ListingTest,
    ::testing::Values(
        ListingCase{"no type runs to the line end, reading stops at the match", "/dev/sdb1 on /data\n/dev/sdc1 on /srv type xfs\n",
                    "/data", true, {"/data"}},
        ListingCase{"lines without on skipped, a prefix is no match", "none\n\nproc /proc proc\n" + kDataLine, "/dat", false, {"/data"}},
        // 1023 characters fit; the line after it is still read.
        ListingCase{"line of 1023 characters", LineOfLength(1023) + "\n" + kDataLine, "/data", true, {DirectoryOfLength(1023), "/data"}},
        // A longer line is examined cut to 1023 characters and ends the reading.
        ListingCase{"line of 1024 characters ends the reading", LineOfLength(1024) + "\n" + kDataLine, "/data", false,
                    {DirectoryOfLength(1023)}}),
    CaseName<ListingCase>);

// An unreadable listing is not mounted; isMounted returns at once.
TEST_F(PluginTest, AnUnreadableListingIsNotMountedWithoutALeaveLine) {
  scripted::script().bMountFileUnreadable = true;
  CLoggerConfigCmd cmd;
  scripted::calls().clear();
  EXPECT_FALSE(cmd.isMounted("/data"));
  EXPECT_EQ(scripted::traces(), (Lines{"4|[ENTER] " + kSigIsMounted + " /data",
                                       "2|" + kSigIsMounted + " Failed to open file (/nonexistent/scripted-host/mount-output)."}));
}

// ---- The mount-point list ----

const char kLeaveMount[] = "4|[LEAVE] int CLoggerConfigCmd::CmdMount()";
const std::string kSigMultiplex = "bool CLoggerConfigCmd::isMultiplexDefinition(std::string, Velmora_LoggerFsThresholdConf&)";

struct MountCase {
  const char *name, *pszMountPoint;
  int nOnOff, nThreshold;
  std::vector<Velmora_LoggerFsThresholdConf> listed;  // the pending list
  const char* pszNumFileSys;                          // nullptr: unreadable
  std::set<std::string> failWrites;
  int nExpected;
  std::string writes;
  Lines shows;
};
KTL_CASE_FIXTURE(CmdMountTest, MountCase);

// "/" and "/data" are mounted.
void Prepare(CLoggerConfigCmd& cmd, const MountCase& c) {
  scripted::script().strMountListing = "/dev/sda1 on / type ext4 (rw)\n" + kDataLine;
  scripted::script().bReadConfFileResult = true;
  scripted::script().pending.fs.vecThreshold = c.listed;
  if (c.pszNumFileSys) scripted::script().mapStrings["FILESYS/NumFileSys"] = c.pszNumFileSys;
  scripted::script().setFailWrite = c.failWrites;
  scripted::script().mapShowResult = {{"MSG_CLI_ERROR_APPLICATION", 7}, {"MSG_CLI_ERROR_LOGGER_MP", 6}, {"MSG_CLI_HOLD_PARAM", 5}};
  cmd.m_strMountPoint = c.pszMountPoint;
  cmd.m_nOnOff = c.nOnOff;
  cmd.m_nThreshold = c.nThreshold;
  scripted::calls().clear();
}

TEST_P(CmdMountTest, AddsOrRewritesTheEntry) {
  const MountCase& c = GetParam();
  CLoggerConfigCmd cmd;
  Prepare(cmd, c);

  EXPECT_EQ(cmd.CmdMount(), c.nExpected);
  EXPECT_EQ(Writes(), Words(c.writes));
  EXPECT_EQ(scripted::shows(), c.shows);
  EXPECT_EQ(scripted::traces().back() == kLeaveMount, c.nExpected == 0);
}

// The first entry of the same path, compared exactly, is rewritten in place.
const std::vector<Velmora_LoggerFsThresholdConf> kDataAt3{FsEntry(4, 70, 0x10, "/DATA"), FsEntry(3, 90, 0x11, "/data"),
                                                          FsEntry(6, 99, 0x10, "/data")};

INSTANTIATE_TEST_SUITE_P(
    List, CmdMountTest,
    ::testing::Values(
        // "NumFileSys" is read the way strtol reads decimal text.
        MountCase{"new entry", "/data", 0x11, 90, {FsEntry(1, 80, 0x11, "/home")}, " +9 entries", {}, 0,
                  "FILESYS/NumFileSys=10 FSNAME-10/Available=0x11 FSNAME-10/Threshold=90 FSNAME-10/Mount=/data", {kHold}},
        MountCase{"first listed entry rewritten, count untouched", "/data", 0x11, 90, kDataAt3, "7", {}, 0,
                  "FSNAME-3/Available=0x11 FSNAME-3/Threshold=90 FSNAME-3/Mount=/data", {kHold}},
        MountCase{"off: no threshold written", "/data", 0x10, -1, kDataAt3, "7", {}, 0, "FSNAME-3/Available=0x10 FSNAME-3/Mount=/data",
                  {kHold}},
        MountCase{"listed without a number gets a new one", "/data", 0x11, -1, {FsEntry(-1, 90, 0x11, "/data")}, "", {}, 0,
                  "FILESYS/NumFileSys=1 FSNAME-1/Available=0x11 FSNAME-1/Mount=/data", {kHold}},
        MountCase{"not mounted writes nothing", "/srv", 0x11, 90, {}, "2", {}, 6, "", {"MSG_CLI_ERROR_LOGGER_MP|0|"}},
        MountCase{"count unreadable writes nothing", "/data", 0x11, 90, {}, nullptr, {}, 7, "", {kAppError}},
        // Failed writes are not examined: the entry is written as far as it goes.
        MountCase{"failed writes", "/data", 0x11, 90, {}, "2", {"FILESYS/NumFileSys", "FSNAME-3/Threshold", "FSNAME-3/Mount"}, 0,
                  "FILESYS/NumFileSys=3 FSNAME-3/Available=0x11 FSNAME-3/Threshold=90 FSNAME-3/Mount=/data",
                  {kAppError, kAppError, kHold}}),
    CaseName<MountCase>);

TEST_F(PluginTest, RewriteIsTracedWithTheMountPointLiterally) {
  const MountCase c{"", "/mnt/%d%s", 0x11, -1, {FsEntry(2, 50, 0x10, "/mnt/%d%s")}, "2", {}, 0, "", {}};
  CLoggerConfigCmd cmd;
  Prepare(cmd, c);
  scripted::script().strMountListing = "/dev/sdb1 on /mnt/%d%s type ext3 (rw)\n";
  EXPECT_EQ(cmd.CmdMount(), 0);
  Lines vecOwn;  // isMounted's lines left out
  for (const std::string& strLine : scripted::traces())
    if (strLine.find("isMounted") == std::string::npos) vecOwn.push_back(strLine);
  EXPECT_EQ(vecOwn, (Lines{"4|[ENTER] int CLoggerConfigCmd::CmdMount()", "4|[ENTER] " + kSigMultiplex + " /mnt/%d%s",
                           "1|" + kSigMultiplex + " Mountpoint(/mnt/%d%s) is already exist (threshold=50, 0x10)",
                           "4|[LEAVE] " + kSigMultiplex + ", rc=TRUE", kLeaveMount}));
}

}  // namespace
