// The mount-point list: isMultiplexDefinition and CmdMount.
#include <gtest/gtest.h>

#include <set>

#include "tests/plugin/plugin_test_support.h"

namespace {

const char kHold[] = "MSG_CLI_HOLD_PARAM|0|";
const char kAppError[] = "MSG_CLI_ERROR_APPLICATION|4278190081|";
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
        MountCase{"trailing slash is another mount point", "/data", 0x11, 90, {FsEntry(2, 60, 0x11, "/data/")}, "2", {}, 0, kNew3, {kHold}},
        MountCase{"not mounted writes nothing", "/srv", 0x11, 90, {}, "2", {}, 6, "", {kNotMounted}},
        MountCase{"not mounted though listed", "/data/", 0x11, 90, {FsEntry(2, 90, 0x11, "/data/")}, "2", {}, 6, "", {kNotMounted}},
        MountCase{"count unreadable writes nothing", "/data", 0x11, 90, {}, nullptr, {}, 7, "", {kAppError}},
        // Failed writes are not examined: the entry is written as far as it goes.
        MountCase{"count write fails", "/data", 0x11, 90, {}, "2", {"FILESYS/NumFileSys"}, 0, kNew3, {kAppError, kHold}},
        MountCase{"Available write fails", "/data", 0x11, 90, kDataAt3, "3", {"FSNAME-3/Available"}, 0, kRewrite3, {kAppError, kHold}},
        MountCase{"Threshold write fails", "/data", 0x11, 90, kDataAt3, "3", {"FSNAME-3/Threshold"}, 0, kRewrite3, {kAppError, kHold}},
        MountCase{"Mount write fails silently", "/data", 0x11, 90, kDataAt3, "3", {"FSNAME-3/Mount"}, 0, kRewrite3, {kHold}}),
    CaseName<MountCase>);

class MountPointEditTest : public PluginTest {};

// "NumFileSys" is read the way strtol reads decimal text.
TEST_F(MountPointEditTest, NewEntryGetsTheNextNumber) {
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

TEST_F(MountPointEditTest, FirstMatchIsCopiedWholeAndNoMatchLeavesTheEntryAlone) {
  ScriptList({FsEntry(4, 70, 0x10, "/DATA"), FsEntry(5, 75, 0x11, "/data"), FsEntry(6, 99, 0x10, "/data")}, "6");
  CLoggerConfigCmd cmd;
  Velmora_LoggerFsThresholdConf entry = FsEntry(0, 0, 0, "");
  EXPECT_TRUE(cmd.isMultiplexDefinition("/data", entry));
  EXPECT_EQ(Describe({entry}), Lines{"/data:75:17:5"});
  Velmora_LoggerFsThresholdConf untouched = FsEntry(8, 1, 2, "keep");
  EXPECT_FALSE(cmd.isMultiplexDefinition("/dat", untouched));
  EXPECT_EQ(Describe({untouched}), Lines{"keep:1:2:8"});
}

TEST_F(MountPointEditTest, RewriteIsTracedWithTheMountPointLiterally) {
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
