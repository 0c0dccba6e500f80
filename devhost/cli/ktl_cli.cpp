// ktl-cli: loads a command plug-in and drives it the way the appliance's CLI
// does.
//
//   ktl-cli COMMAND WORD...
//
// loads libktl_cli-COMMAND.so from devhost::PluginDir(), creates the command
// object with the plug-in's factory GetCommandFactoryCOMMAND, and calls
// CheckParam(words), CheckExec() and Exec(command line), each only after the
// previous one returned 0; then deletes the object. The exit statuses are
// listed in kUsage. The whole command runs under the command lock of the
// state directory (devhost/files/command_lock.h).
#include <dlfcn.h>

#include <cstring>
#include <exception>
#include <iomanip>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "devhost/cli/standard_output.h"
#include "devhost/command/audit_log.h"
#include "devhost/files/command_lock.h"
#include "devhost/command/current_command.h"
#include "devhost/files/paths.h"
#include "devhost/service/service_failure.h"
#include "host/command.h"
#include "host/trace_utility.h"

namespace {

const int kExitSuccess = 0;
const int kExitCommandFailed = 1;
const int kExitUsage = 2;
const int kExitPluginUnavailable = 3;
const int kExitException = 4;

const char kTraceModule[] = "ktl-cli";
const char kFactoryPrefix[] = "GetCommandFactory";

const char kUsage[] =
    "Usage: ktl-cli COMMAND [WORD...]\n"
    "       ktl-cli --help\n"
    "\n"
    "Runs one command of the management CLI, e.g.\n"
    "  ktl-cli logger -confirm cur\n"
    "\n"
    "The command's plug-in libktl_cli-COMMAND.so is loaded from the plug-in\n"
    "directory; the command checks its words, then whether it may run, then\n"
    "runs, each step only when the previous one succeeded.\n"
    "\n"
    "Exit status:\n"
    "  0  the command succeeded\n"
    "  1  the command refused its words or failed (its message says why)\n"
    "  2  ktl-cli itself was used wrongly (no command, unknown option)\n"
    "  3  the plug-in or its factory could not be loaded\n"
    "  4  the command stopped on an unexpected error\n"
    "\n"
    "Environment (current value in brackets). The KTL_* variables are\n"
    "development and test switches: they choose what ktl-cli loads, runs and\n"
    "reads. Never let other users run ktl-cli through sudo with them kept\n"
    "(env_keep); a set-user-ID ktl-cli ignores them.\n";

typedef CCommand* (*CommandFactory)();

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
      {"KTL_LOCK_TIMEOUT", "seconds to wait for another command's lock",
       std::to_string(devhost::LockTimeoutSeconds())},
      {"TMPDIR", "where command output files are created", devhost::TempDir()},
  };
  out << kUsage;
  for (const Variable& variable : variables) {
    out << "  " << std::left << std::setw(18) << variable.pszName << variable.pszMeaning << " [" << variable.strValue
        << "]\n";
  }
}

// A command name becomes part of a file name and of a symbol name.
bool isValidCommandName(const std::string& strName) {
  return !strName.empty() && strName[0] != '-' && strName.find('/') == std::string::npos;
}

// The loaded plug-in, closed when it goes out of scope.
class CPluginLibrary {
 public:
  CPluginLibrary() : m_pHandle(nullptr) {}
  ~CPluginLibrary() {
    if (m_pHandle) dlclose(m_pHandle);
  }
  CPluginLibrary(const CPluginLibrary&) = delete;
  CPluginLibrary& operator=(const CPluginLibrary&) = delete;

  // RTLD_NOW: a plug-in with an unresolved host symbol fails here, not in the
  // middle of a command. RTLD_NODELETE keeps its code mapped after dlclose,
  // so that leak reports at exit can still name its functions.
  bool Open(const std::string& strPath) {
    m_pHandle = dlopen(strPath.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    return m_pHandle != nullptr;
  }
  CommandFactory Factory(const std::string& strSymbol) {
    dlerror();
    return reinterpret_cast<CommandFactory>(dlsym(m_pHandle, strSymbol.c_str()));
  }

 private:
  void* m_pHandle;
};

std::string DlError() {
  const char* pszError = dlerror();
  return pszError ? pszError : "no reason given";
}

// One protocol step: traced, and true when it returned 0.
bool StepSucceeded(const char* pszStep, int nResult) {
  CTraceUtility::WriteDebug(kTraceModule, CTraceUtility::TRACE_DBG_NOTE, "%s returned %d", pszStep, nResult);
  return nResult == 0;
}

int RunCommand(CCommand& command, const std::vector<std::string>& vecWords, const std::string& strCommandLine) {
  if (!StepSucceeded("CheckParam", command.CheckParam(vecWords))) return kExitCommandFailed;
  if (!StepSucceeded("CheckExec", command.CheckExec())) return kExitCommandFailed;
  if (!StepSucceeded("Exec", command.Exec(strCommandLine))) return kExitCommandFailed;
  return kExitSuccess;
}

devhost::CStandardOutputBuffer g_standardOutput;

// Output that could not be written fails the command: a script reading it
// would otherwise take a cut-off report for a whole one.
int CheckStandardOutput(int nStatus) {
  std::cout.flush();
  const int nErrno = g_standardOutput.ErrorNumber();
  if (std::cout.good() && nErrno == 0) return nStatus;
  std::cerr << "ktl-cli: cannot write the command's output to standard output"
            << (nErrno != 0 ? std::string(": ") + std::strerror(nErrno) : std::string()) << std::endl;
  return nStatus == kExitSuccess ? kExitCommandFailed : nStatus;
}

// The end of a command that reached its execution step: its output is out
// and its audit record tells how it ended.
int FinishCommand(int nStatus) {
  nStatus = CheckStandardOutput(nStatus);
  std::string strError;
  if (!devhost::EndAuditRecord(nStatus, strError)) {
    std::cerr << "ktl-cli: the audit record of the command was not written: " << strError << std::endl;
    if (nStatus == kExitSuccess) nStatus = kExitCommandFailed;
  }
  return nStatus;
}

}  // namespace

int main(int argc, char** argv) {
  g_standardOutput.Install();
  if (argc < 2) {
    PrintUsage(std::cerr);
    return kExitUsage;
  }
  const std::string strCommand = argv[1];
  if (strCommand == "--help" || strCommand == "-h") {
    PrintUsage(std::cout);
    return CheckStandardOutput(kExitSuccess);
  }
  if (!isValidCommandName(strCommand)) {
    std::cerr << "ktl-cli: not a command name: " << strCommand << " (see ktl-cli --help)" << std::endl;
    return kExitUsage;
  }
  const std::vector<std::string> vecWords(argv + 2, argv + argc);
  std::string strCommandLine = strCommand;
  for (const std::string& strWord : vecWords) strCommandLine += " " + strWord;

  CPluginLibrary plugin;
  const std::string strPath = devhost::PluginDir() + "/libktl_cli-" + strCommand + ".so";
  if (!plugin.Open(strPath)) {
    std::cerr << "ktl-cli: cannot load the plug-in of command \"" << strCommand << "\" (" << strPath
              << "): " << DlError() << std::endl;
    return kExitPluginUnavailable;
  }
  const std::string strFactory = kFactoryPrefix + strCommand;
  const CommandFactory factory = plugin.Factory(strFactory);
  if (factory == nullptr) {
    std::cerr << "ktl-cli: the plug-in " << strPath << " has no factory " << strFactory << ": " << DlError()
              << std::endl;
    return kExitPluginUnavailable;
  }

  // The base CCommand takes its template name from the current command.
  devhost::SetCurrentCommand(strCommand);
  try {
    devhost::CCommandLock lock;
    std::string strError;
    if (!lock.Acquire(strError)) {
      std::cerr << "ktl-cli: " << strError << std::endl;
      return kExitCommandFailed;
    }
    std::unique_ptr<CCommand> pCommand(factory());
    if (!pCommand) {
      std::cerr << "ktl-cli: the factory " << strFactory << " created no command" << std::endl;
      return kExitPluginUnavailable;
    }
    const int nStatus = RunCommand(*pCommand, vecWords, strCommandLine);
    pCommand.reset();
    return FinishCommand(nStatus);
  } catch (const devhost::CServiceFailure& e) {
    std::cerr << "ktl-cli: " << e.what() << std::endl;
    return FinishCommand(kExitCommandFailed);
  } catch (const std::exception& e) {
    std::cerr << "ktl-cli: the command \"" << strCommand << "\" stopped on an unexpected error: " << e.what()
              << std::endl;
  } catch (...) {
    std::cerr << "ktl-cli: the command \"" << strCommand << "\" stopped on an unexpected error" << std::endl;
  }
  return FinishCommand(kExitException);
}
