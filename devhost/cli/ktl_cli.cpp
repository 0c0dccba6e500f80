// ktl-cli: loads a command plug-in and drives it the way the appliance's CLI
// does.
//
//   ktl-cli [-v] COMMAND WORD...
//
// drives one command (devhost/cli/drive_command.h). The exit statuses are
// listed in kUsage. `ktl-cli help [COMMAND]` describes the installed
// commands; `ktl-cli` alone on a terminal starts the interactive shell
// (devhost/shell/shell.h), which runs each line as these words would run.
#include <unistd.h>

#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "devhost/cli/drive_command.h"
#include "devhost/cli/shell_loader.h"
#include "devhost/cli/standard_descriptors.h"
#include "devhost/cli/standard_output.h"
#include "devhost/command/interrupt.h"
#include "devhost/compare/compare_command.h"
#include "devhost/files/paths.h"
#include "devhost/help/command_description.h"
#include "devhost/help/completion.h"
#include "devhost/help/help_text.h"
#include "devhost/utilities/profile_reports.h"
#include "devhost/utilities/terminal_text.h"
#include "devhost/utilities/trace_echo.h"

namespace {

using devhost::kExitSuccess;
using devhost::kExitUsage;

const char kUsage[] =
    "Usage: ktl-cli [-v] COMMAND [WORD...]\n"
    "       ktl-cli help [COMMAND]\n"
    "       ktl-cli compare logger   (pending changes against the configuration in effect)\n"
    "       ktl-cli [-v]       (on a terminal: the interactive shell)\n"
    "       ktl-cli --help | --version\n"
    "\n"
    "Runs one command of the management CLI, e.g.\n"
    "  ktl-cli logger -confirm cur\n"
    "\n"
    "The command's plug-in libktl_cli-COMMAND.so is loaded from the plug-in\n"
    "directory; the command checks its words, then whether it may run, then\n"
    "runs, each step only when the previous one succeeded. A refusal is\n"
    "followed by its reasons; -v (--verbose) also prints every trace line on\n"
    "standard error, whatever KTL_TRACE_MASK says.\n"
    "\n"
    "Exit status:\n"
    "  0  the command succeeded\n"
    "  1  the command refused its words or failed (its message says why)\n"
    "  2  ktl-cli itself was used wrongly (no command, unknown option)\n"
    "  3  the plug-in or its factory could not be loaded\n"
    "  4  the command stopped on an unexpected error\n"
    "  5  a question was declined or left unanswered: nothing was done\n"
    "\n"
    "Environment (current value in brackets). The KTL_* variables are\n"
    "development and test switches: they choose what ktl-cli loads, runs and\n"
    "reads. Never let other users run ktl-cli through sudo with them kept\n"
    "(env_keep); a set-user-ID ktl-cli ignores them.\n";

void PrintUsage(std::ostream& out) {
  struct Variable {
    const char* pszName;
    const char* pszMeaning;
    std::string strValue;
  };
  const Variable variables[] = {
      {"KTL_STATE_DIR", "state of the logging tool, edit sessions, audit.log",
       devhost::StateDir().empty() ? std::string("none: set HOME or KTL_STATE_DIR") : devhost::StateDir()},
      {"KTL_PLUGIN_DIR", "where libktl_cli-COMMAND.so is loaded from", devhost::PluginDir()},
      {"KTL_TEMPLATE_DIR", "display templates, NAME.mustache", devhost::TemplateDir()},
      {"KTL_CATALOGUE", "message catalogue (INI file)", devhost::CatalogueFile()},
      {"KTL_DEFAULT_CONF", "shipped default configuration of the logging tool", devhost::DefaultConfFile()},
      {"KTL_ROOT", "root under which absolute paths such as limits files are read", devhost::UnderRoot("/")},
      {"KTL_MOUNT_CMD", "command run in place of /bin/mount", devhost::MountCommand()},
      {"KTL_TRACE_FILE", "debug trace file", devhost::TraceFile()},
      {"KTL_TRACE_MASK", "enabled trace levels, a bit mask of 1|2|4|8|16; 0 = off",
       std::to_string(devhost::TraceMask())},
      {"KTL_LOCK_TIMEOUT", "seconds to wait for another command's lock", std::to_string(devhost::LockTimeoutSeconds())},
      {"TMPDIR", "where command output files are created", devhost::TempDir()},
  };
  out << kUsage;
  for (const Variable& variable : variables) {
    out << "  " << std::left << std::setw(18) << variable.pszName << variable.pszMeaning << " [" << variable.strValue
        << "]\n";
  }
}

// The versions of this host and of the plug-in package built with it, both
// the project's version.
void PrintVersion(std::ostream& out) {
  out << "ktl-cli (ktl-cli-host) " << KTL_VERSION << "\n"
      << "libktl_cli-logger (ktl-cli-logger) " << KTL_VERSION << "\n";
}

// `ktl-cli --complete WORD... PREFIX`: what bash completion offers.
int PrintCompletions(const std::vector<std::string>& vecArgs) {
  if (vecArgs.empty()) return kExitUsage;
  const std::vector<std::string> vecBefore(vecArgs.begin(), vecArgs.end() - 1);
  for (const std::string& strCandidate :
       devhost::CompletionCandidates(vecBefore, vecArgs.back(), devhost::Place::kCommandLine)) {
    std::cout << strCandidate << "\n";
  }
  return kExitSuccess;
}

// The words after "ktl-cli", from the command line or from a line of the
// shell (ePlace).
int RunWords(const std::vector<std::string>& vecWords, devhost::Place ePlace) {
  // Each command, and each line of the shell, says what is wrong with the
  // limits file it reads.
  devhost::StartProfileReports();
  const std::string& strCommand = vecWords.front();
  const std::vector<std::string> vecRest(vecWords.begin() + 1, vecWords.end());
  if (strCommand == "--help" || strCommand == "-h") {
    PrintUsage(std::cout);
    return kExitSuccess;
  }
  if (strCommand == "--version") {
    PrintVersion(std::cout);
    return kExitSuccess;
  }
  if (strCommand == "help") return devhost::ShowHelp(vecRest, ePlace, std::cout, std::cerr);
  if (strCommand == "--complete") return PrintCompletions(vecRest);
  if (strCommand == devhost::kCompareWord) return devhost::RunCompare(vecRest, std::cout, std::cerr);
  // "COMMAND -h" is what a newcomer types first: the command's help, not a
  // refusal of an unknown option.
  if (vecRest.size() == 1 && (vecRest.front() == "-h" || vecRest.front() == "--help") &&
      devhost::isValidCommandName(strCommand)) {
    return devhost::ShowHelp({strCommand}, ePlace, std::cout, std::cerr);
  }
  if (!devhost::isValidCommandName(strCommand)) {
    std::cerr << "ktl-cli: not a command name: " << devhost::EscapeControlBytes(strCommand) << " (see ktl-cli --help)"
              << std::endl;
    return kExitUsage;
  }
  // A word that names no plug-in is a typing error, not a loading failure.
  if (!devhost::isInstalledCommand(strCommand)) return devhost::ShowUnknownCommand(strCommand, ePlace, std::cerr);
  return devhost::DriveCommand(strCommand, vecRest);
}

// A line of the shell: Ctrl-C ends the wait the command is in, not the shell.
int RunShellLine(const std::vector<std::string>& vecWords) {
  const devhost::CInterruptCatcher catcher;
  return RunWords(vecWords, devhost::Place::kShell);
}

bool isTerminal() { return isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1; }

bool isVerboseSwitch(const std::string& strWord) { return strWord == "-v" || strWord == "--verbose"; }

}  // namespace

int main(int argc, char** argv) {
  if (!devhost::FillClosedStandardDescriptors()) return devhost::kExitCommandFailed;
  devhost::StandardOutput().Install();
  std::vector<std::string> vecWords(argv + 1, argv + argc);
  // Only before the command name: after it, "-v" is one of its words.
  if (!vecWords.empty() && isVerboseSwitch(vecWords.front())) {
    devhost::EchoTraceToStandardError(true);
    vecWords.erase(vecWords.begin());
  }
  if (vecWords.empty()) {
    if (isTerminal()) return devhost::StartShell(RunShellLine);
    PrintUsage(std::cerr);
    return kExitUsage;
  }
  return devhost::CheckStandardOutput(RunWords(vecWords, devhost::Place::kCommandLine));
}
