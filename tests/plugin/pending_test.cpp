// The commands on the pending configuration: Confirm displays it (or the one
// in effect), MergeConf completes it with the one in effect, Save makes it,
// completed and checked, the configuration in effect, and Discard drops it.
#include <gtest/gtest.h>

#include "tests/plugin/plugin_test_support.h"

namespace {
const std::string kConfirmSig = "int CLoggerConfigCmd::Confirm()";
const std::string kMergeSig = "int CLoggerConfigCmd::MergeConf(Velmora_LoggerConf&)";

// A record told apart by its syslog switch and cpu interval: the
// configuration in effect is "17:60"; the pending one (syslog not set, cpu
// set) is "0:10" alone and "17:10" once completed with the one in effect.
const char kEffective[] = "17:60";
const char kMerged[] = "17:10";

struct ConfirmCase {
  const char* name;
  std::string type;  // m_strConfirmType
  bool bPending;     // ReadConfFile's answer
  int nGetParameter;
  bool bOutput;
  int nExpected;
  bool bReadsPending;
  Lines shows;
  const char* displayed;  // the record shown; nullptr = no display
};
KTL_CASE_FIXTURE(ConfirmTest, ConfirmCase);

TEST_P(ConfirmTest, DisplaysTheChosenRecordOrReportsWhyNot) {
  const ConfirmCase& c = GetParam();
  scripted::Script& s = scripted::script();
  s.effective.syslogOutput.nOutput = 0x11;
  s.effective.cpu = Monitor(0x11, 60, 3, 80);
  s.pending.cpu = Monitor(0x11, 10, 2, 70);
  s.bReadConfFileResult = c.bPending;
  s.nGetParameterResult = c.nGetParameter;
  s.bOutputResult = c.bOutput;
  s.mapShowResult = {{"MSG_CLI_LOGGER_INSTALL", 31}, {"MSG_CLI_ERROR_APPLICATION", 32}};
  CLoggerConfigCmd cmd;
  cmd.m_strConfirmType = c.type;
  scripted::calls().clear();

  testing::internal::CaptureStdout();
  EXPECT_EQ(cmd.Confirm(), c.nExpected);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), c.displayed && c.bOutput ? "rendered\n" : "");
  EXPECT_EQ(scripted::callsOf("ReadConfFile").size(), c.bReadsPending ? 1u : 0u);
  EXPECT_EQ(scripted::shows(), c.shows);
  if (c.displayed) {
    EXPECT_EQ(scripted::callsOf("Output").size(), 1u);
    ASSERT_FALSE(scripted::shownRecords().empty());
    const Velmora_LoggerConf& shown = scripted::shownRecords().back();
    EXPECT_EQ(std::to_string(shown.syslogOutput.nOutput) + ":" + std::to_string(shown.cpu.nInterval), c.displayed);
  } else {
    EXPECT_TRUE(scripted::callsOf("Init").empty());
  }
  // The LEAVE line is written when the record was displayed, even if the display failed.
  Lines vecOwn, vecExpected{"4|[ENTER] " + kConfirmSig + " " + c.type};
  for (const std::string& strLine : scripted::traces())
    if (strLine.find(kConfirmSig) != std::string::npos) vecOwn.push_back(strLine);
  if (c.displayed) vecExpected.push_back("4|[LEAVE] " + kConfirmSig + ", rc=" + std::to_string(c.nExpected));
  EXPECT_EQ(vecOwn, vecExpected);
}

INSTANTIATE_TEST_SUITE_P(
    Records, ConfirmTest,
    ::testing::Values(
        ConfirmCase{"cur ignores pending edits", "cur", true, 0, true, 0, false, {}, kEffective},
        ConfirmCase{"edit completes the pending edits", "edit", true, 0, true, 0, true, {}, kMerged},
        ConfirmCase{"edit with nothing pending shows the effective one", "edit", false, 0, true, 0, true, {}, kEffective},
        ConfirmCase{"the comparison is case-sensitive", "CUR", true, 0, true, 0, true, {}, kMerged},
        ConfirmCase{"cur, tool not installed", "cur", true, 176, true, 31, false, {kNotInstalled}, nullptr},
        ConfirmCase{"cur, service fails", "cur", true, 1, true, 32, false, {kAppError}, nullptr},
        ConfirmCase{"edit, the merge fails", "edit", true, 5, true, 32, true, {kAppError}, nullptr},
        ConfirmCase{"the display fails", "cur", false, 0, false, 32, false, {kAppError}, kEffective}),
    CaseName<ConfirmCase>);

// MergeConf merges only when nothing failed visibly: a failure whose message
// answers 0 still merges.
TEST_F(PluginTest, MergeConfCompletesTheRecordUnlessAFailureIsReported) {
  const struct {
    const char* name;
    int nStatus, nShowResult, nExpected;  // GetParameter, show's answer for the failure message
    bool bMerged;
    Lines shows;
  } kCases[] = {{"read", 0, 9, 0, true, {}},
                {"not installed", 176, 9, 9, false, {kNotInstalled}},
                {"other failure", -1, 9, 9, false, {kAppError}},
                {"not installed, message answers 0", 176, 0, 0, true, {kNotInstalled}},
                {"other failure, message answers 0", 5, 0, 0, true, {kAppError}}};
  for (const auto& c : kCases) {
    scripted::reset();
    scripted::script().nGetParameterResult = c.nStatus;
    scripted::script().nShowDefault = c.nShowResult;
    scripted::script().effective.cpu = Monitor(0x11, 30, 4, 85);
    CLoggerConfigCmd cmd;
    scripted::calls().clear();

    Velmora_LoggerConf conf;
    EXPECT_EQ(cmd.MergeConf(conf), c.nExpected) << c.name;
    EXPECT_EQ(scripted::shows(), c.shows) << c.name;
    EXPECT_EQ(cmd.m_LoggerConf.cpu.nInterval, 30) << c.name << ": the configuration in effect is kept in the member";
    EXPECT_EQ(conf.cpu.nAvailable, c.bMerged ? 0x11 : 0) << c.name;
    EXPECT_EQ(scripted::shownRecords().size(), c.bMerged ? 1u : 0u) << c.name;
    EXPECT_EQ(scripted::callNames().back() == "ShowConf", c.bMerged) << c.name;
    EXPECT_EQ(scripted::traces().front(), "4|[ENTER] " + kMergeSig) << c.name;
    EXPECT_EQ(scripted::traces().back(), "4|[LEAVE] " + kMergeSig + ", rc=" + std::to_string(c.nExpected)) << c.name;
  }
}

// ---- Save and Discard ----


const char kSigSave[] = "int CLoggerConfigCmd::Save()";
const char kSaved[] = "MSG_CLI_COMPLATE_SAVE|0|";
const char kRefused[] = "MSG_CLI_ERROR_LOGGER_SAVE|0|";
const char kPrcid[] = "MSG_CLI_CHECK_PRCID|0|";

struct SaveCase {
  const char* name;
  int nNoCheck;
  bool bAnswer, bOwnSession, bPendingReadable;  // Inquiry, CheckProcessId, ReadConfFile
  int nGetParameter;
  int nFsAvailable;  // pending disk monitor; its one entry is /data, switched on
  bool bDataMounted;
  int nSetParameter;
  bool bDropped;  // the accessor's Discard
  int nExpected;
  std::string calls;
  Lines shows;
  bool bLeave;  // Save's own LEAVE line
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
  for (const scripted::HostCall& call : scripted::callsOf("Inquiry")) EXPECT_EQ(call.vecArgs, (Lines{"MSG_CLI_SAVE_PARAM", "0"}));
  for (const scripted::HostCall& call : scripted::callsOf("CheckProcessId")) EXPECT_EQ(call.vecArgs[0], "4242");
  const Lines vecTraces = scripted::traces();
  ASSERT_FALSE(vecTraces.empty());
  EXPECT_EQ(vecTraces.front(), std::string("4|[ENTER] ") + kSigSave);
  const std::string strLeave = std::string("4|[LEAVE] ") + kSigSave + ", rc=" + std::to_string(c.nExpected);
  EXPECT_EQ(vecTraces.back() == strLeave, c.bLeave) << vecTraces.back();
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
        SaveCase{"merge: tool not installed", 0, true, true, true, 176, 0x11, true, 0, true, 9, kUpToMerge + " show", {kNotInstalled}, false},
        SaveCase{"no mounted mount point", 0, true, true, true, 0, 0x11, false, 0, true, 6, kUpToMerge + " ShowConf ExecSystemCmd show",
                 {kRefused}, false},
        SaveCase{"store: not installed, pending kept", 0, true, true, true, 0, 0x11, true, 176, true, 9, kStored, {kNotInstalled}, true}),
    CaseName<SaveCase>);

// The disk settings come from the configuration in effect when the pending
// one has not switched the disk monitor, and the merged result is checked.
TEST_F(PluginTest, SaveStoresThePendingRecordCompletedAndChecksTheMergedDisks) {
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
  EXPECT_EQ(std::make_pair(stored.cpu.nAvailable, stored.cpu.nInterval), std::make_pair(0x10, -1)) << "switched cpu kept";
  EXPECT_EQ(Describe(stored.fs.vecThreshold), (Lines{"/data:70:17:2", "/srv:80:17:4"}));
  EXPECT_EQ(scripted::callsOf("ExecSystemCmd").size(), 2u);  // both merged mount points checked
}

TEST_F(PluginTest, DiscardAsksThenDrops) {
  const char kDone[] = "MSG_CLI_COMPLATE_DISCARD|0|";
  const struct {
    const char* name;
    int nNoCheck;
    bool bAnswer, bDropped;  // Inquiry, the accessor's Discard
    int nExpected;
    const char* calls;
    Lines shows;
  } kCases[] = {{"confirmed", 0, true, true, 3, "Inquiry Discard show", {kDone}},
                {"declined", 0, false, true, 0, "Inquiry", {}},
                {"nochk asks nothing", 1, false, true, 3, "Discard show", {kDone}},
                {"accessor fails", 0, true, false, 8, "Inquiry Discard show", {kAppError}},
                {"accessor fails, nochk", 1, true, false, 8, "Discard show", {kAppError}}};
  for (const auto& c : kCases) {
    scripted::reset();
    scripted::script().bInquiryAnswer = c.bAnswer;
    scripted::script().bDiscardResult = c.bDropped;
    scripted::script().mapShowResult = {{"MSG_CLI_COMPLATE_DISCARD", 3}, {"MSG_CLI_ERROR_APPLICATION", 8}};
    CLoggerConfigCmd cmd;
    cmd.m_nNoCheck = c.nNoCheck;
    scripted::calls().clear();

    EXPECT_EQ(cmd.Discard(), c.nExpected) << c.name;
    EXPECT_EQ(scripted::callNames(), Words(c.calls)) << c.name;
    EXPECT_EQ(scripted::shows(), c.shows) << c.name;
    for (const scripted::HostCall& call : scripted::callsOf("Inquiry"))
      EXPECT_EQ(call.vecArgs, (Lines{"MSG_CLI_DISCARD_PARAM", "0"})) << c.name;
    Lines vecTraces{"4|[ENTER] int CLoggerConfigCmd::Discard()"};
    // Dropped: the note comes before the message.
    if (c.nExpected == 3) vecTraces.push_back("1|int CLoggerConfigCmd::Discard() Discard Completed");
    vecTraces.push_back("4|[LEAVE] int CLoggerConfigCmd::Discard(), rc=" + std::to_string(c.nExpected));
    EXPECT_EQ(scripted::traces(), vecTraces) << c.name;
  }
}

}  // namespace
