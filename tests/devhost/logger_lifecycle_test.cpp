// The "logger" command end to end: ktl-cli runs as a separate process, loads
// the real plug-in and works on a temporary state directory through the
// whole life of a configuration.
#include <sstream>

#include <gmock/gmock.h>

#include "tests/devhost/cli_process.h"

namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using devhost_test::CliRun;

class LoggerLifecycleTest : public LoggerCliTest {
 protected:
  // Runs a command that must succeed and show the hold message.
  void Edit(const std::vector<std::string>& vecWords) {
    const CliRun run = Run(vecWords);
    ASSERT_EQ(run.nExitStatus, 0) << run.strErr;
    EXPECT_THAT(run.strOut, HasSubstr("The change is held in the pending configuration."));
  }
};

// Edits of every kind are held, confirmed and saved. Declined questions and
// discards are pinned by the Inquiry, the open question and the plug-in's
// own tests.
TEST_F(LoggerLifecycleTest, EditsConfirmAndSave) {
  Edit({"-alert", "err", "-setting", "off"});
  Edit({"-device", "cpu", "-setting", "on", "-interval", "30", "-count", "5", "-threshold", "70"});
  Edit({"-device", "disk", "-setting", "on", "-interval", "600"});
  Edit({"-mp", "/data", "-setting", "on", "-threshold", "80"});
  Edit({"-mp", "/backup", "-setting", "off"});
  const CliRun edit = Run({"-confirm", "edit"});
  EXPECT_EQ(edit.nExitStatus, 0);
  EXPECT_THAT(edit.strOut, HasSubstr("/data"));
  EXPECT_THAT(Run({"-confirm", "cur"}).strOut, Not(HasSubstr("/data"))) << "nothing is in effect before the save";

  const CliRun save = Run({"-save", "-nochk"});
  ASSERT_EQ(save.nExitStatus, 0) << save.strErr;
  EXPECT_THAT(save.strOut, HasSubstr("The pending changes were saved and are now in effect."));
  EXPECT_FALSE(std::filesystem::exists(StateFile("logger.edit.ini")));
  const std::string strEffective = Effective();
  for (const char* pszLine : {"Error=0x10", "Interval=30", "Count=5", "Threshold=70", "Interval=600", "[FSNAME-1]",
                              "Mount=/data", "Threshold=80", "[FSNAME-2]", "Mount=/backup"})
    EXPECT_THAT(strEffective, HasSubstr(pszLine));
  EXPECT_EQ(Run({"-confirm", "cur"}).strOut, edit.strOut) << "the saved configuration is the one confirmed";
}

// A refused command shows one message and leaves both files as they were:
// the plug-in's own check, the host's mount listing, the check of the
// configuration to save, and a command started from another shell, which
// is another session (it may still look at the pending edits).
TEST_F(LoggerLifecycleTest, ARefusedCommandShowsOneMessageAndChangesNothing) {
  const struct {
    std::vector<std::string> vecWords;
    bool bOtherSession;
    const char* pszMessage;
  } cases[] = {
      {{"-verbose"}, false, "Error: The command line is not valid."},
      {{"-mp", "/data/", "-setting", "on"}, false, "Error: The directory is not a mounted file system."},
      {{"-save"}, false, "Error: The configuration was not saved: the disk usage monitor is on"},
      {{"-syslogoutput", "off"}, true, "Error: The logger configuration is being edited in another session."},
      {{"-save", "-nochk"}, true, "Error: The logger configuration is being edited in another session."},
  };
  Edit({"-device", "disk", "-setting", "on"});  // leaves the disk monitor on without a mount point
  const std::string strEffective = Effective(), strPending = Pending();
  for (const auto& c : cases) {
    const CliRun run = Run(c.vecWords, "y\n", c.bOtherSession);
    EXPECT_EQ(run.nExitStatus, 1) << c.vecWords[0];
    EXPECT_EQ(run.strErr.rfind(c.pszMessage, 0), 0u) << run.strErr;
    // One message; only the reasons the plug-in traced follow it.
    std::istringstream lines(run.strErr);
    std::string strLine;
    std::getline(lines, strLine);
    while (std::getline(lines, strLine)) EXPECT_EQ(strLine.rfind("reason: ", 0), 0u) << run.strErr;
    EXPECT_EQ(Effective(), strEffective) << c.vecWords[0];
    EXPECT_EQ(Pending(), strPending) << c.vecWords[0];
  }
  EXPECT_EQ(Run({"-confirm", "edit"}, "", true).nExitStatus, 0);
}

}  // namespace
