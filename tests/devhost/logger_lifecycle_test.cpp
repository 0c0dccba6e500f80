// The "logger" command end to end: ktl-cli runs as a separate process, loads
// the real plug-in and works on a temporary state directory through the
// whole life of a configuration.
#include "tests/devhost/logger_cli_fixture.h"

namespace {

using devhost_test::CliRun;

// Texts of the catalogue, as the operator sees them.
const char kHeld[] = "The change is held in the pending configuration.";
const char kBadCommand[] = "Error: The command line is not valid.";
const char kSaved[] = "The pending changes were saved and are now in effect.";
const char kDiscarded[] = "The pending changes were discarded.";
const char kOtherSession[] = "Error: The logger configuration is being edited in another session.";
const char kNotInstalled[] = "Error: The resource-usage logging tool is not installed.";
const char kSyslogOff[] = "Error: This setting cannot be changed while syslog output is off.";
const char kNotMounted[] = "Error: The directory is not a mounted file system.";
const char kSaveRefused[] = "Error: The configuration was not saved: the disk usage monitor is on";

class LoggerLifecycleTest : public LoggerCliTest {
 protected:
  // Runs a command that must succeed and show the hold message.
  void Edit(const std::vector<std::string>& vecWords) {
    const CliRun run = Run(vecWords);
    ASSERT_EQ(run.nExitStatus, 0) << run.strErr;
    EXPECT_NE(run.strOut.find(kHeld), std::string::npos) << run.strOut;
  }
};

bool Contains(const std::string& strText, const std::string& strPart) {
  return strText.find(strPart) != std::string::npos;
}

TEST_F(LoggerLifecycleTest, EditsOfEveryKindConfirmAndSave) {
  Edit({"-alert", "err", "-setting", "off"});
  Edit({"-device", "cpu", "-setting", "on", "-interval", "30", "-count", "5", "-threshold", "70"});
  Edit({"-device", "mem", "-setting", "off"});
  Edit({"-device", "disk", "-setting", "on", "-interval", "600", "-count", "2"});
  Edit({"-mp", "/data", "-setting", "on", "-threshold", "80"});
  Edit({"-mp", "/backup", "-setting", "off"});

  const CliRun edit = Run({"-confirm", "edit"});
  EXPECT_EQ(edit.nExitStatus, 0);
  EXPECT_TRUE(Contains(edit.strOut, "/data")) << edit.strOut;
  EXPECT_FALSE(Contains(edit.strOut, "/backup")) << "a switched-off mount point is not listed";
  const CliRun current = Run({"-confirm", "cur"});
  EXPECT_EQ(current.nExitStatus, 0);
  EXPECT_FALSE(Contains(current.strOut, "/data")) << "nothing is in effect before the save";
  EXPECT_EQ(Run({"-confirm"}).strOut, edit.strOut) << "no value means edit";

  const CliRun save = Run({"-save", "-nochk"});
  ASSERT_EQ(save.nExitStatus, 0) << save.strErr;
  EXPECT_TRUE(Contains(save.strOut, kSaved));
  EXPECT_FALSE(std::filesystem::exists(Path("state/logger.edit.ini")));
  const std::string strEffective = Effective();
  for (const char* pszLine : {"Error=0x10", "Interval=30", "Count=5", "Threshold=70", "Interval=600",
                              "[FSNAME-1]", "Mount=/data", "Threshold=80", "[FSNAME-2]", "Mount=/backup"})
    EXPECT_TRUE(Contains(strEffective, pszLine)) << pszLine << " in\n" << strEffective;
  EXPECT_EQ(Run({"-confirm", "cur"}).strOut, edit.strOut) << "the saved configuration is the one confirmed";
}

TEST_F(LoggerLifecycleTest, ConfirmedDiscardDropsThePendingEdits) {
  const std::string strBefore = (Run({"-confirm", "cur"}), Effective());
  Edit({"-syslogoutput", "off"});
  const CliRun discard = Run({"-discard"}, "y\n");
  EXPECT_EQ(discard.nExitStatus, 0);
  EXPECT_TRUE(Contains(discard.strOut, kDiscarded));
  EXPECT_FALSE(std::filesystem::exists(Path("state/logger.edit.ini")));
  EXPECT_EQ(Effective(), strBefore);
}

TEST_F(LoggerLifecycleTest, DeclinedQuestionsChangeNothing) {
  Edit({"-device", "cpu", "-setting", "off"});
  const std::string strEffective = Effective(), strPending = Pending();
  for (const char* pszForm : {"-save", "-discard"}) {
    for (const char* pszAnswer : {"n\n", ""}) {
      const CliRun run = Run({pszForm}, pszAnswer);
      EXPECT_EQ(run.nExitStatus, 0) << pszForm;
      EXPECT_EQ(Effective(), strEffective) << pszForm;
      EXPECT_EQ(Pending(), strPending) << pszForm;
    }
  }
}

TEST_F(LoggerLifecycleTest, ASecondSessionCannotTouchThePendingEdits) {
  Edit({"-syslogoutput", "on"});
  const std::string strPending = Pending();
  for (const std::vector<std::string>& vecWords :
       {std::vector<std::string>{"-syslogoutput", "off"}, {"-save", "-nochk"}}) {
    const CliRun run = Run(vecWords, "", true);
    EXPECT_NE(run.nExitStatus, 0) << vecWords[0];
    EXPECT_TRUE(Contains(run.strErr, kOtherSession)) << run.strErr;
  }
  EXPECT_EQ(Pending(), strPending);
  // Confirm and discard skip the session check: another session may look.
  EXPECT_EQ(Run({"-confirm", "edit"}, "", true).nExitStatus, 0);
}

TEST_F(LoggerLifecycleTest, AToolThatIsNotInstalledIsReported) {
  m_env.Set("KTL_DEFAULT_CONF", Path("no-such-default.ini"));
  const CliRun run = Run({"-confirm", "cur"});
  EXPECT_NE(run.nExitStatus, 0);
  EXPECT_TRUE(Contains(run.strErr, kNotInstalled)) << run.strErr;
  EXPECT_EQ(run.strOut, "");
}

// A refused command shows one message and leaves both files as they were.
struct RefusalCase {
  const char* name;
  std::vector<std::string> words;
  const char* pszMessage;
};

class LoggerRefusalTest : public LoggerLifecycleTest, public ::testing::WithParamInterface<RefusalCase> {};

TEST_P(LoggerRefusalTest, ShowsOneMessageAndChangesNothing) {
  const RefusalCase& c = GetParam();
  Edit({"-device", "disk", "-setting", "on"});  // leaves the disk monitor on without a mount point
  const std::string strEffective = Effective(), strPending = Pending();
  const CliRun run = Run(c.words, "y\n");
  EXPECT_NE(run.nExitStatus, 0);
  EXPECT_EQ(run.strErr.rfind(c.pszMessage, 0), 0u) << run.strErr;
  EXPECT_EQ(std::count(run.strErr.begin(), run.strErr.end(), '\n'), 1) << run.strErr;
  EXPECT_EQ(Effective(), strEffective);
  EXPECT_EQ(Pending(), strPending);
}

INSTANTIATE_TEST_SUITE_P(
    Refusals, LoggerRefusalTest,
    ::testing::Values(RefusalCase{"unknown option", {"-verbose"}, kBadCommand},
                      RefusalCase{"value without option", {"on"}, kBadCommand},
                      RefusalCase{"threshold below the cpu range", {"-device", "cpu", "-setting", "on", "-threshold", "5"}, kBadCommand},
                      RefusalCase{"six digits", {"-device", "cpu", "-setting", "on", "-interval", "000060"}, kBadCommand},
                      RefusalCase{"disk takes no threshold", {"-device", "disk", "-setting", "on", "-threshold", "80"}, kBadCommand},
                      RefusalCase{"off with a value", {"-mp", "/data", "-setting", "off", "-threshold", "80"}, kBadCommand},
                      RefusalCase{"confirm with a bad kind", {"-confirm", "all"}, kBadCommand},
                      RefusalCase{"not mounted", {"-mp", "/data/", "-setting", "on"}, kNotMounted},
                      RefusalCase{"disk monitor without a mount point", {"-save"}, kSaveRefused}),
    devhost_test::CaseName<RefusalCase>);

TEST_F(LoggerLifecycleTest, SettingCommandsWaitForSyslogOutput) {
  Edit({"-syslogoutput", "off"});
  const std::string strPending = Pending();
  for (const std::vector<std::string>& vecWords :
       {std::vector<std::string>{"-alert", "inf", "-setting", "on"}, {"-device", "cpu", "-setting", "off"},
        {"-mp", "/data", "-setting", "on"}}) {
    const CliRun run = Run(vecWords);
    EXPECT_NE(run.nExitStatus, 0) << vecWords[0];
    EXPECT_TRUE(Contains(run.strErr, kSyslogOff)) << run.strErr;
  }
  EXPECT_EQ(Pending(), strPending);
  Edit({"-syslogoutput", "on"});
}

}  // namespace
