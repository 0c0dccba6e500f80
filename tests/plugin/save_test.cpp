// Save: the pending configuration, completed and checked, becomes the
// configuration in effect.
#include <gtest/gtest.h>

#include "tests/plugin/plugin_test_support.h"

namespace {

const char kSigSave[] = "int CLoggerConfigCmd::Save()";
const char kAppError[] = "MSG_CLI_ERROR_APPLICATION|4278190081|";
const char kInstall[] = "MSG_CLI_LOGGER_INSTALL|0|";
const char kSaved[] = "MSG_CLI_COMPLATE_SAVE|0|";
const char kRefused[] = "MSG_CLI_ERROR_LOGGER_SAVE|0|";
const char kPrcid[] = "MSG_CLI_CHECK_PRCID|0|";

struct SaveCase {
  const char* name;
  int nNoCheck;
  bool bAnswer, bOwnSession, bPendingReadable;  // Inquiry, CheckProcessId, ReadConfFile
  int nGetParameter;
  int nFsAvailable;      // pending disk monitor; its one entry is /data, switched on
  bool bDataMounted;
  int nSetParameter;
  bool bDropped;         // the accessor's Discard
  int nExpected;
  std::string calls;
  Lines shows;
  bool bLeave;           // Save's own LEAVE line
};
KTL_CASE_FIXTURE(SaveTest, SaveCase);

TEST_P(SaveTest, FollowsTheSavePath) {
  const SaveCase& c = GetParam();
  scripted::Script& s = scripted::script();
  s.bInquiryAnswer = c.bAnswer;
  s.bCheckProcessId = c.bOwnSession;
  s.bReadConfFileResult = c.bPendingReadable;
  s.pending.fs.nAvailable = c.nFsAvailable;
  s.pending.fs.vecThreshold = {FsEntry(1, 90, 0x11, "/data")};
  s.strMountListing = c.bDataMounted ? "/dev/sdb1 on /data type ext3 (rw)\n" : "/dev/sda1 on / type ext4 (rw)\n";
  s.nGetParameterResult = c.nGetParameter;
  s.nSetParameterResult = c.nSetParameter;
  s.bDiscardResult = c.bDropped;
  s.mapShowResult = {{"MSG_CLI_ERROR_APPLICATION", 7}, {"MSG_CLI_LOGGER_INSTALL", 9}, {"MSG_CLI_ERROR_LOGGER_SAVE", 6},
                     {"MSG_CLI_COMPLATE_SAVE", 2}, {"MSG_CLI_CHECK_PRCID", 11}};
  CLoggerConfigCmd cmd;
  cmd.m_nNoCheck = c.nNoCheck;
  scripted::calls().clear();

  EXPECT_EQ(cmd.Save(), c.nExpected);
  EXPECT_EQ(scripted::callNames(), Words(c.calls));
  EXPECT_EQ(scripted::shows(), c.shows);
  for (const scripted::HostCall& call : scripted::callsOf("Inquiry"))
    EXPECT_EQ(call.vecArgs, (Lines{"MSG_CLI_SAVE_PARAM", "0"}));
  for (const scripted::HostCall& call : scripted::callsOf("CheckProcessId"))
    EXPECT_EQ(call.vecArgs[0], "4242");

  const Lines vecTraces = scripted::traces();
  ASSERT_FALSE(vecTraces.empty());
  EXPECT_EQ(vecTraces.front(), std::string("4|[ENTER] ") + kSigSave);
  const std::string strLeave = std::string("4|[LEAVE] ") + kSigSave + ", rc=" + std::to_string(c.nExpected);
  EXPECT_EQ(vecTraces.back() == strLeave, c.bLeave) << ": " << vecTraces.back();
}

const std::string kUpToMerge = "Inquiry GetPPID CheckProcessId ReadConfFile GetParameter";
const std::string kStored = kUpToMerge + " ShowConf ExecSystemCmd ShowConf SetParameter show";

INSTANTIATE_TEST_SUITE_P(
    Paths, SaveTest,
    ::testing::Values(
        SaveCase{"saved", 0, true, true, true, 0, 0x11, true, 0, true, 2, kStored + " Discard", {kSaved}, true},
        SaveCase{"saved, dropping fails unreported", 0, true, true, true, 0, 0x11, true, 0, false, 2, kStored + " Discard", {kSaved}, true},
        SaveCase{"nochk asks nothing", 1, false, true, true, 0, 0x10, true, 0, true, 2,
                 "GetPPID CheckProcessId ReadConfFile GetParameter ShowConf ShowConf SetParameter show Discard", {kSaved}, true},
        SaveCase{"declined reads nothing", 0, false, true, true, 0, 0x11, true, 0, true, 0, "Inquiry", {}, true},
        SaveCase{"another session reported, save goes on", 0, true, false, true, 0, 0x10, true, 0, true, 2,
                 "Inquiry GetPPID CheckProcessId show ReadConfFile GetParameter ShowConf ShowConf SetParameter show Discard",
                 {kPrcid, kSaved}, true},
        SaveCase{"no pending configuration", 0, true, true, false, 0, 0x11, true, 0, true, 7,
                 "Inquiry GetPPID CheckProcessId ReadConfFile show", {kAppError}, false},
        SaveCase{"tool not installed", 0, true, true, true, 176, 0x11, true, 0, true, 9, kUpToMerge + " show", {kInstall}, false},
        SaveCase{"configuration in effect unreadable", 0, true, true, true, 4, 0x11, true, 0, true, 7, kUpToMerge + " show", {kAppError}, false},
        SaveCase{"no mounted mount point", 0, true, true, true, 0, 0x11, false, 0, true, 6, kUpToMerge + " ShowConf ExecSystemCmd show",
                 {kRefused}, false},
        SaveCase{"store: not installed, pending kept", 0, true, true, true, 0, 0x11, true, 176, true, 9, kStored, {kInstall}, true},
        SaveCase{"store fails, pending kept", 0, true, true, true, 0, 0x11, true, 1, true, 7, kStored, {kAppError}, true}),
    CaseName<SaveCase>);

class SaveRecordTest : public PluginTest {};

// The disk settings come from the configuration in effect when the pending
// one has not switched the disk monitor, and the merged result is checked.
TEST_F(SaveRecordTest, StoresThePendingRecordCompletedAndChecksTheMergedDisks) {
  scripted::Script& s = scripted::script();
  s.bReadConfFileResult = true;
  s.pending.cpu = Monitor(0x10, -1, -1, -1);
  s.pending.fs.vecThreshold = {FsEntry(2, 70, 0x11, "/data")};
  s.effective.cpu = Monitor(0x11, 10, 3, 90);
  s.effective.fs.nAvailable = 0x11;
  s.effective.fs.vecThreshold = {FsEntry(1, 95, 0x10, "/data"), FsEntry(4, 80, 0x11, "/srv")};
  s.strMountListing = "/dev/sdb1 on /data type ext3 (rw)\n";
  CLoggerConfigCmd cmd;
  cmd.m_nNoCheck = 1;

  EXPECT_EQ(cmd.Save(), 0);
  ASSERT_EQ(scripted::storedRecords().size(), 1u);
  const Velmora_LoggerConf& stored = scripted::storedRecords()[0];
  EXPECT_EQ(stored.cpu.nAvailable, 0x10);
  EXPECT_EQ(stored.cpu.nInterval, -1);
  EXPECT_EQ(stored.fs.nAvailable, 0x11);
  EXPECT_EQ(Describe(stored.fs.vecThreshold), (Lines{"/data:70:17:2", "/srv:80:17:4"}));
  EXPECT_EQ(scripted::callsOf("ExecSystemCmd").size(), 2u);  // both merged mount points checked
  ASSERT_EQ(scripted::shownRecords().size(), 2u);
  EXPECT_EQ(Describe(scripted::shownRecords()[1].fs.vecThreshold), Describe(stored.fs.vecThreshold));
}

}  // namespace
