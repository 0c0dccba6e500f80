// The mount-point list: isMultiplexDefinition and CmdMount.
#include <gtest/gtest.h>

#include <set>

#include "tests/plugin/plugin_test_support.h"

namespace {

const char kMountedData[] = "/dev/sda1 on / type ext4 (rw)\n/dev/sdb1 on /data type ext3 (rw)\n";
const char kHold[] = "MSG_CLI_HOLD_PARAM|0|";
const char kAppError[] = "MSG_CLI_ERROR_APPLICATION|4278190081|";
const char kNotMounted[] = "MSG_CLI_ERROR_LOGGER_MP|0|";
const char kLeaveMount[] = "4|[LEAVE] int CLoggerConfigCmd::CmdMount()";
const char kSigMultiplex[] = "bool CLoggerConfigCmd::isMultiplexDefinition(std::string, Velmora_LoggerFsThresholdConf&)";

std::vector<std::string> Writes() {
  std::vector<std::string> vecWrites;
  for (const scripted::HostCall& call : scripted::callsOf("WriteString"))
    vecWrites.push_back(call.vecArgs[0] + "/" + call.vecArgs[1] + "=" + call.vecArgs[2]);
  return vecWrites;
}

// A command for pszMountPoint, with /data mounted and the given pending list.
void ScriptList(const std::vector<Velmora_LoggerFsThresholdConf>& vecListed, const char* pszNumFileSys) {
  scripted::script().strMountListing = kMountedData;
  scripted::script().bReadConfFileResult = true;
  scripted::script().pending.fs.vecThreshold = vecListed;
  if (pszNumFileSys) scripted::script().mapStrings["FILESYS/NumFileSys"] = pszNumFileSys;
  scripted::script().mapShowResult = {
      {"MSG_CLI_ERROR_APPLICATION", 7}, {"MSG_CLI_ERROR_LOGGER_MP", 6}, {"MSG_CLI_HOLD_PARAM", 5}};
}

struct MountCase {
  const char* name;
  const char* pszMountPoint;
  int nOnOff;
  int nThreshold;
  std::vector<Velmora_LoggerFsThresholdConf> listed;  // the pending list
  const char* pszNumFileSys;                           // nullptr: cannot be read
  std::set<std::string> failWrites;
  int nExpected;
  std::vector<std::string> writes;
  std::vector<std::string> shows;
  bool bLeave;
};
KTL_PRINT_CASE_BY_NAME(MountCase)

class CmdMountTest : public PluginTest, public ::testing::WithParamInterface<MountCase> {};

TEST_P(CmdMountTest, AddsOrRewritesTheEntry) {
  const MountCase& c = GetParam();
  ScriptList(c.listed, c.pszNumFileSys);
  scripted::script().setFailWrite = c.failWrites;
  CLoggerConfigCmd cmd;
  cmd.m_strMountPoint = c.pszMountPoint;
  cmd.m_nOnOff = c.nOnOff;
  cmd.m_nThreshold = c.nThreshold;
  scripted::calls().clear();

  EXPECT_EQ(cmd.CmdMount(), c.nExpected) << c.name;
  EXPECT_EQ(Writes(), c.writes) << c.name;
  EXPECT_EQ(scripted::shows(), c.shows) << c.name;
  EXPECT_EQ(scripted::traces().back() == kLeaveMount, c.bLeave) << c.name;
  // The mount check comes first, and once.
  EXPECT_EQ(scripted::callNames()[0], "ExecSystemCmd") << c.name;
  EXPECT_EQ(scripted::callsOf("ExecSystemCmd").size(), 1u) << c.name;
}

const std::vector<Velmora_LoggerFsThresholdConf> kDataAt3{FsEntry(1, 80, 0x11, "/home"), FsEntry(3, 90, 0x11, "/data")};
const std::vector<std::string> kRewrite3{"FSNAME-3/Available=0x11", "FSNAME-3/Threshold=90", "FSNAME-3/Mount=/data"};

INSTANTIATE_TEST_SUITE_P(
    List, CmdMountTest,
    ::testing::Values(
        MountCase{"new entry", "/data", 0x11, 90, {FsEntry(1, 80, 0x11, "/home")}, "2", {}, 0,
                  {"FILESYS/NumFileSys=3", "FSNAME-3/Available=0x11", "FSNAME-3/Threshold=90", "FSNAME-3/Mount=/data"},
                  {kHold}, true},
        MountCase{"listed entry rewritten, count untouched", "/data", 0x11, 90, kDataAt3, "7", {}, 0, kRewrite3,
                  {kHold}, true},
        MountCase{"switched off keeps the threshold", "/data", 0x10, -1, {FsEntry(3, 90, 0x10, "/data")}, "3", {}, 0,
                  {"FSNAME-3/Available=0x10", "FSNAME-3/Mount=/data"}, {kHold}, true},
        MountCase{"listed without a number gets a new one", "/data", 0x11, -1, {FsEntry(-1, 90, 0x11, "/data")}, "4",
                  {}, 0, {"FILESYS/NumFileSys=5", "FSNAME-5/Available=0x11", "FSNAME-5/Mount=/data"}, {kHold}, true},
        MountCase{"trailing slash is another mount point", "/data", 0x11, 60, {FsEntry(2, 90, 0x11, "/data/")}, "2",
                  {}, 0,
                  {"FILESYS/NumFileSys=3", "FSNAME-3/Available=0x11", "FSNAME-3/Threshold=60", "FSNAME-3/Mount=/data"},
                  {kHold}, true},
        MountCase{"not mounted writes nothing", "/srv", 0x11, 90, {}, "2", {}, 6, {}, {kNotMounted}, false},
        MountCase{"not mounted though listed", "/data/", 0x11, 90, {FsEntry(2, 90, 0x11, "/data/")}, "2", {}, 6, {},
                  {kNotMounted}, false},
        MountCase{"count unreadable writes nothing", "/data", 0x11, 90, {}, nullptr, {}, 7, {}, {kAppError}, false},
        // Failed writes are not examined: the entry is written as far as it goes.
        MountCase{"count write fails", "/data", 0x11, 90, {}, "2", {"FILESYS/NumFileSys"}, 0,
                  {"FILESYS/NumFileSys=3", "FSNAME-3/Available=0x11", "FSNAME-3/Threshold=90", "FSNAME-3/Mount=/data"},
                  {kAppError, kHold}, true},
        MountCase{"Available write fails", "/data", 0x11, 90, kDataAt3, "3", {"FSNAME-3/Available"}, 0, kRewrite3,
                  {kAppError, kHold}, true},
        MountCase{"Threshold write fails", "/data", 0x11, 90, kDataAt3, "3", {"FSNAME-3/Threshold"}, 0, kRewrite3,
                  {kAppError, kHold}, true},
        MountCase{"Mount write fails silently", "/data", 0x11, 90, kDataAt3, "3", {"FSNAME-3/Mount"}, 0, kRewrite3,
                  {kHold}, true}),
    CaseName<MountCase>);

// "NumFileSys" is read the way strtol reads decimal text.
struct CountCase {
  const char* name;
  const char* pszText;
  const char* pszNext;
};
KTL_PRINT_CASE_BY_NAME(CountCase)

class NumFileSysTest : public PluginTest, public ::testing::WithParamInterface<CountCase> {};

TEST_P(NumFileSysTest, NewEntryGetsTheNextNumber) {
  const CountCase& c = GetParam();
  ScriptList({}, c.pszText);
  CLoggerConfigCmd cmd;
  cmd.m_strMountPoint = "/data";
  cmd.m_nOnOff = 0x10;
  scripted::calls().clear();
  EXPECT_EQ(cmd.CmdMount(), 0) << c.name;
  const std::string strSection = std::string("FSNAME-") + c.pszNext;
  EXPECT_EQ(Writes(), (std::vector<std::string>{std::string("FILESYS/NumFileSys=") + c.pszNext,
                                                strSection + "/Available=0x10", strSection + "/Mount=/data"}))
      << c.name;
}

INSTANTIATE_TEST_SUITE_P(Texts, NumFileSysTest,
                         ::testing::Values(CountCase{"empty counts as 0", "", "1"},
                                           CountCase{"non-numeric counts as 0", "abc", "1"},
                                           CountCase{"leading blanks and sign", " \t+12", "13"},
                                           CountCase{"trailing text ignored", "9 entries", "10"},
                                           CountCase{"blank after the sign counts as 0", "- 5", "1"}),
                         CaseName<CountCase>);

class MultiplexTest : public PluginTest {};

TEST_F(MultiplexTest, FirstMatchIsCopiedWholeAndNoMatchLeavesTheEntryAlone) {
  ScriptList({FsEntry(4, 70, 0x10, "/DATA"), FsEntry(5, 75, 0x11, "/data"), FsEntry(6, 99, 0x10, "/data")}, "6");
  CLoggerConfigCmd cmd;

  Velmora_LoggerFsThresholdConf entry = FsEntry(0, 0, 0, "");
  EXPECT_TRUE(cmd.isMultiplexDefinition("/data", entry));
  EXPECT_EQ(Describe({entry}), std::vector<std::string>{"/data:75:17:5"});

  Velmora_LoggerFsThresholdConf untouched = FsEntry(8, 1, 2, "keep");
  EXPECT_FALSE(cmd.isMultiplexDefinition("/dat", untouched));
  EXPECT_EQ(Describe({untouched}), std::vector<std::string>{"keep:1:2:8"});
}

TEST_F(MultiplexTest, RewriteIsTracedWithTheMountPointLiterally) {
  ScriptList({FsEntry(2, 50, 0x10, "/mnt/%d%s")}, "2");
  scripted::script().strMountListing = "/dev/sdb1 on /mnt/%d%s type ext3 (rw)\n";
  CLoggerConfigCmd cmd;
  cmd.m_strMountPoint = "/mnt/%d%s";
  cmd.m_nOnOff = 0x11;
  scripted::calls().clear();
  EXPECT_EQ(cmd.CmdMount(), 0);

  std::vector<std::string> vecOwn;  // isMounted's lines left out
  for (const std::string& strLine : scripted::traces())
    if (strLine.find("isMounted") == std::string::npos) vecOwn.push_back(strLine);
  const std::string strSig = kSigMultiplex;
  EXPECT_EQ(vecOwn, (std::vector<std::string>{
                        "4|[ENTER] int CLoggerConfigCmd::CmdMount()", "4|[ENTER] " + strSig + " /mnt/%d%s",
                        "1|" + strSig + " Mountpoint(/mnt/%d%s) is already exist (threshold=50, 0x10)",
                        "4|[LEAVE] " + strSig + ", rc=TRUE", kLeaveMount}));
}

}  // namespace
