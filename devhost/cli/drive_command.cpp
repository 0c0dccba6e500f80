// The sequence that drives one command (see drive_command.h).
#include "devhost/cli/drive_command.h"

#include <dlfcn.h>

#include <exception>
#include <iostream>
#include <memory>

#include "devhost/cli/standard_output.h"
#include "devhost/command/audit_log.h"
#include "devhost/command/current_command.h"
#include "devhost/files/command_lock.h"
#include "devhost/files/paths.h"
#include "devhost/help/refusal_explanation.h"
#include "devhost/messages/held_messages.h"
#include "devhost/messages/question_outcome.h"
#include "devhost/service/pending_edits.h"
#include "devhost/utilities/mount_snapshot.h"
#include "devhost/utilities/refusal_reasons.h"
#include "devhost/utilities/terminal_text.h"
#include "host/command.h"
#include "host/trace_utility.h"

namespace devhost {
namespace {

const char kTraceModule[] = "ktl-cli";
const char kFactoryPrefix[] = "GetCommandFactory";

typedef CCommand* (*CommandFactory)();

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
  // The command succeeds when its question is declined; nothing was done.
  return devhost::wasQuestionDeclined() ? kExitDeclined : kExitSuccess;
}

// The end of a command that reached its execution step: its output is out
// and its audit record tells how it ended. strTookEffect holds the messages
// of what the command changed: when its output failed, they are repeated
// on standard error, so that the failure is not taken for "nothing done".
int FinishCommand(int nStatus, const std::string& strTookEffect) {
  const int nCommandStatus = nStatus;
  nStatus = CheckStandardOutput(nStatus);
  if (nStatus != nCommandStatus) {
    // The plug-in's notes are not why the output failed.
    devhost::StartCollectingReasons();
    if (!strTookEffect.empty()) std::cerr << "ktl-cli: the command took effect all the same: " << strTookEffect;
  }
  std::string strError;
  if (!devhost::EndAuditRecord(nStatus, strError)) {
    std::cerr << "ktl-cli: the audit record of the command was not written: " << strError << std::endl;
    if (nStatus == kExitSuccess) nStatus = kExitCommandFailed;
  }
  return nStatus;
}

int LoadAndRun(const std::string& strCommand, const std::vector<std::string>& vecWords) {
  std::string strCommandLine = strCommand;
  for (const std::string& strWord : vecWords) strCommandLine += " " + strWord;

  CPluginLibrary plugin;
  const std::string strPath = devhost::PluginDir() + "/libktl_cli-" + strCommand + ".so";
  if (!plugin.Open(strPath)) {
    // The name and the path come from the command line and the environment:
    // escaped, they cannot drive the terminal.
    std::cerr << "ktl-cli: cannot load the plug-in of command \"" << EscapeControlBytes(strCommand) << "\" ("
              << EscapeControlBytes(strPath) << "): " << EscapeControlBytes(DlError()) << std::endl;
    return kExitPluginUnavailable;
  }
  const std::string strFactory = kFactoryPrefix + strCommand;
  const CommandFactory factory = plugin.Factory(strFactory);
  if (factory == nullptr) {
    std::cerr << "ktl-cli: the plug-in " << EscapeControlBytes(strPath) << " has no factory "
              << EscapeControlBytes(strFactory) << ": " << EscapeControlBytes(DlError()) << std::endl;
    return kExitPluginUnavailable;
  }

  // The base CCommand takes its template name from the current command.
  devhost::SetCurrentCommand(strCommand);
  try {
    devhost::CCommandLock lock;
    std::string strError;
    if (!lock.Acquire(strError)) {
      std::cerr << "ktl-cli: " << EscapeControlBytes(strError) << std::endl;
      return kExitCommandFailed;
    }
    std::unique_ptr<CCommand> pCommand(factory());
    if (!pCommand) {
      std::cerr << "ktl-cli: the factory " << strFactory << " created no command" << std::endl;
      return kExitPluginUnavailable;
    }
    devhost::StartHoldingMessages();
    int nStatus = RunCommand(*pCommand, vecWords, strCommandLine);
    // The pending edits of a command that succeeded are written once, after
    // Exec, so that a command killed midway leaves them as they were. When
    // that fails, the notes the plug-in traced are not why.
    if ((nStatus == kExitSuccess || nStatus == kExitDeclined) && !devhost::CommitPendingEdits()) {
      nStatus = kExitCommandFailed;
      devhost::StartCollectingReasons();
    }
    pCommand.reset();
    return FinishCommand(nStatus, devhost::EndHoldingMessages(nStatus == kExitSuccess || nStatus == kExitDeclined));
  } catch (const std::exception& e) {
    std::cerr << "ktl-cli: the command \"" << strCommand << "\" stopped on an unexpected error: " << e.what()
              << std::endl;
  } catch (...) {
    std::cerr << "ktl-cli: the command \"" << strCommand << "\" stopped on an unexpected error" << std::endl;
  }
  devhost::EndHoldingMessages(false);
  return FinishCommand(kExitException, std::string());
}

}  // namespace

bool isValidCommandName(const std::string& strName) {
  return !strName.empty() && strName[0] != '-' && strName.find('/') == std::string::npos;
}

int DriveCommand(const std::string& strCommand, const std::vector<std::string>& vecWords) {
  // The command's checks and the reasons after a refusal see one listing of
  // the mounts, taken once.
  const devhost::CMountSnapshot mounts;
  devhost::StartCollectingReasons();
  devhost::ForgetQuestionOutcome();
  const int nStatus = LoadAndRun(strCommand, vecWords);
  if (nStatus != kExitSuccess && nStatus != kExitDeclined) devhost::ExplainRefusal(strCommand, vecWords, std::cerr);
  return nStatus;
}

}  // namespace devhost
