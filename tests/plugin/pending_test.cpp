// The commands on the pending configuration: Confirm displays it (or the one
// in effect), MergeConf completes it with the one in effect, Save makes it,
// completed and checked, the configuration in effect, and Discard drops it.
#include <gtest/gtest.h>

#include <algorithm>

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
  int nExpected;           // 31 for "not installed", 32 for the application error
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
  EXPECT_EQ(scripted::shows(), c.nExpected == 0 ? Lines{} : Lines{c.nExpected == 31 ? kNotInstalled : kAppError});
  if (c.displayed) {
    const Velmora_LoggerConf& shown = scripted::shownRecords().back();
    EXPECT_EQ(std::to_string(shown.syslogOutput.nOutput) + ":" + std::to_string(shown.cpu.nInterval), c.displayed);
  }
  // Confirm's lines and those of MergeConf when it completes the pending record. The
  // LEAVE line is written when the record was displayed, even if the display failed.
  Lines vecOwn, vecExpected{"4|[ENTER] " + kConfirmSig + " " + c.type};
  if (c.type != "cur" && c.bPending)
    vecExpected.insert(vecExpected.end(),
                       {"4|[ENTER] " + kMergeSig, "4|[LEAVE] " + kMergeSig + ", rc=" + std::to_string(c.displayed ? 0 : c.nExpected)});
  for (const std::string& strLine : scripted::traces())
    if (strLine.find(kConfirmSig) != std::string::npos || strLine.find(kMergeSig) != std::string::npos) vecOwn.push_back(strLine);
  if (c.displayed) vecExpected.push_back("4|[LEAVE] " + kConfirmSig + ", rc=" + std::to_string(c.nExpected));
  EXPECT_EQ(vecOwn, vecExpected);
}

INSTANTIATE_TEST_SUITE_P(
    Records, ConfirmTest,
    ::testing::Values(ConfirmCase{"cur ignores pending edits", "cur", true, 0, true, 0, kEffective},
                      ConfirmCase{"edit completes the pending edits", "edit", true, 0, true, 0, kMerged},
                      ConfirmCase{"edit with nothing pending shows the effective one", "edit", false, 0, true, 0, kEffective},
                      ConfirmCase{"the comparison is case-sensitive", "CUR", true, 0, true, 0, kMerged},
                      ConfirmCase{"cur, tool not installed", "cur", true, 176, true, 31, nullptr},
                      ConfirmCase{"edit, the merge fails", "edit", true, 5, true, 32, nullptr},
                      ConfirmCase{"the display fails", "cur", false, 0, false, 32, kEffective}),
    CaseName<ConfirmCase>);

// ---- Save and Discard ----

const char kSigSave[] = "int CLoggerConfigCmd::Save()";
const char kSaved[] = "MSG_CLI_COMPLATE_SAVE|0|";
const char kPrcid[] = "MSG_CLI_CHECK_PRCID|0|";
const std::string kLeaveCheck = "4|[LEAVE] int CLoggerConfigCmd::CheckEffectiveFileSystem(Velmora_LoggerConf&), rc=";

struct SaveCase {
  const char* name;
  int nNoCheck;
  bool bAnswer, bOwnSession, bPendingReadable;  // Inquiry, CheckProcessId, ReadConfFile
  // The answers of GetParameter and SetParameter; the pending disk monitor's switch, 0 to take the one in effect.
  int nGetParameter, nSetParameter, nFsAvailable;
  const char* pszMounted;  // the one mount point listed as mounted
  int nExpected;
  std::string calls;
  Lines shows;
};
KTL_CASE_FIXTURE(SaveTest, SaveCase);

// Pending: cpu switched off, /data switched on. In effect: cpu on, the disk
// monitor on with /data and /srv switched off.
TEST_P(SaveTest, FollowsTheSavePath) {
  const SaveCase& c = GetParam();
  scripted::Script& s = scripted::script();
  s.bInquiryAnswer = c.bAnswer;
  s.bCheckProcessId = c.bOwnSession;
  s.bReadConfFileResult = c.bPendingReadable;
  s.pending.cpu = Monitor(0x10, -1, -1, -1);
  s.pending.fs.nAvailable = c.nFsAvailable;
  s.pending.fs.vecThreshold = {FsEntry(2, 70, 0x11, "/data")};
  s.effective.cpu = Monitor(0x11, 10, 3, 90);
  s.effective.fs.nAvailable = 0x11;
  s.effective.fs.vecThreshold = {FsEntry(1, 95, 0x10, "/data"), FsEntry(4, 80, 0x10, "/srv")};
  s.strMountListing = std::string("/dev/sdb1 on ") + c.pszMounted + " type ext3 (rw)\n";
  s.nGetParameterResult = c.nGetParameter;
  s.nSetParameterResult = c.nSetParameter;
  s.mapShowResult = {{"MSG_CLI_ERROR_APPLICATION", 7}, {"MSG_CLI_LOGGER_INSTALL", 9}, {"MSG_CLI_ERROR_LOGGER_SAVE", 6},
                     {"MSG_CLI_COMPLATE_SAVE", 2}, {"MSG_CLI_CHECK_PRCID", 11}};
  CLoggerConfigCmd cmd;
  cmd.m_nNoCheck = c.nNoCheck;
  scripted::calls().clear();

  EXPECT_EQ(cmd.Save(), c.nExpected);
  EXPECT_EQ(scripted::callNames(), Words(c.calls));
  EXPECT_EQ(scripted::shows(), c.shows);
  const Lines vecTraces = scripted::traces();
  for (const scripted::HostCall& call : scripted::callsOf("Inquiry")) EXPECT_EQ(call.vecArgs, (Lines{"MSG_CLI_SAVE_PARAM", "0"}));
  for (const scripted::HostCall& call : scripted::callsOf("CheckProcessId")) EXPECT_EQ(call.vecArgs[0], "4242");
  // The mount check runs on the completed record before the store (6: refused);
  // what is stored is that record: the switched cpu as it is, the disk list of
  // the record in effect with the pending entries.
  const bool bStored = !scripted::callsOf("SetParameter").empty();
  const std::string strChecked = kLeaveCheck + std::to_string(c.nExpected == 6);
  EXPECT_EQ(std::count(vecTraces.begin(), vecTraces.end(), strChecked), bStored || c.nExpected == 6);
  for (const Velmora_LoggerConf& stored : scripted::storedRecords()) {
    EXPECT_EQ(std::make_pair(stored.cpu.nAvailable, stored.cpu.nInterval), std::make_pair(0x10, -1));
    EXPECT_EQ(Describe(stored.fs.vecThreshold),
              c.nFsAvailable == 0 ? Lines({"/data:70:17:2", "/srv:80:16:4"}) : Lines({"/data:70:17:2"}));
  }
  EXPECT_EQ(vecTraces.front(), std::string("4|[ENTER] ") + kSigSave);
  // The failures before the store return without the LEAVE line.
  const std::string strLeave = std::string("4|[LEAVE] ") + kSigSave + ", rc=" + std::to_string(c.nExpected);
  EXPECT_EQ(vecTraces.back() == strLeave, c.calls == "Inquiry" || bStored) << vecTraces.back();
}

const std::string kUpToRead = "Inquiry GetPPID CheckProcessId ReadConfFile";
const std::string kUpToMerge = kUpToRead + " GetParameter ShowConf";
const std::string kStored = kUpToMerge + " ExecSystemCmd ExecSystemCmd ShowConf SetParameter show";

INSTANTIATE_TEST_SUITE_P(
    Paths, SaveTest,
    ::testing::Values(
        SaveCase{"saved, every merged mount point checked", 0, true, true, true, 0, 0, 0, "/data", 2, kStored + " Discard", {kSaved}},
        SaveCase{"declined reads nothing", 0, false, true, true, 0, 0, 0, "/data", 0, "Inquiry", {}},
        SaveCase{"nochk asks nothing; another session reported; disk monitor off", 1, false, false, true, 0, 0, 0x10, "/data", 2,
                 "GetPPID CheckProcessId show ReadConfFile GetParameter ShowConf ShowConf SetParameter show Discard", {kPrcid, kSaved}},
        SaveCase{"no pending configuration", 0, true, true, false, 0, 0, 0, "/data", 7, kUpToRead + " show", {kAppError}},
        SaveCase{"merge: tool not installed", 0, true, true, true, 176, 0, 0, "/data", 9, kUpToRead + " GetParameter show", {kNotInstalled}},
        SaveCase{"only a switched-off mount point mounted", 0, true, true, true, 0, 0, 0, "/srv", 6,
                 kUpToMerge + " ExecSystemCmd ExecSystemCmd show", {"MSG_CLI_ERROR_LOGGER_SAVE|0|"}},
        SaveCase{"store: not installed, pending kept", 0, true, true, true, 0, 176, 0, "/data", 9, kStored, {kNotInstalled}}),
    CaseName<SaveCase>);

// Discard answers 3 when dropped, 8 for the application error.
TEST_F(PluginTest, DiscardAsksThenDrops) {
  const struct {
    int nNoCheck;
    bool bAnswer, bDropped;  // Inquiry, the accessor's Discard
    int nExpected;
    const char* calls;
  } kCases[] = {{0, false, true, 0, "Inquiry"}, {1, false, true, 3, "Discard show"}, {0, true, false, 8, "Inquiry Discard show"}};
  for (const auto& c : kCases) {
    scripted::reset();
    scripted::script().bInquiryAnswer = c.bAnswer;
    scripted::script().bDiscardResult = c.bDropped;
    scripted::script().mapShowResult = {{"MSG_CLI_COMPLATE_DISCARD", 3}, {"MSG_CLI_ERROR_APPLICATION", 8}};
    CLoggerConfigCmd cmd;
    cmd.m_nNoCheck = c.nNoCheck;
    scripted::calls().clear();

    EXPECT_EQ(cmd.Discard(), c.nExpected) << c.calls;
    EXPECT_EQ(scripted::callNames(), Words(c.calls));
    EXPECT_EQ(scripted::shows(), c.nExpected == 0 ? Lines{} : Lines{c.nExpected == 3 ? "MSG_CLI_COMPLATE_DISCARD|0|" : kAppError});
    for (const scripted::HostCall& call : scripted::callsOf("Inquiry")) EXPECT_EQ(call.vecArgs, (Lines{"MSG_CLI_DISCARD_PARAM", "0"}));
    Lines vecTraces{"4|[ENTER] int CLoggerConfigCmd::Discard()"};
    // Dropped: the note comes before the message.
    if (c.nExpected == 3) vecTraces.push_back("1|int CLoggerConfigCmd::Discard() Discard Completed");
    vecTraces.push_back("4|[LEAVE] int CLoggerConfigCmd::Discard(), rc=" + std::to_string(c.nExpected));
    EXPECT_EQ(scripted::traces(), vecTraces) << c.calls;
  }
}

}  // namespace
