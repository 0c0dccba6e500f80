// Exec: the host's execution step, the tool-process check, then the
// operation that CheckParam selected.
#include "plugin/logger_config_cmd.h"
#include "plugin/messages.h"
#include "plugin/trace.h"

LoggerExecMethod pExecMethod = nullptr;

namespace {
const char kSigExec[] = "virtual int CLoggerConfigCmd::Exec(std::string)";
}

int CLoggerConfigCmd::Exec(std::string strCommand) {
  logger_trace::Enter(kSigExec);
  int nResult;
  if (CCommand::Exec(strCommand) != 0) {
    nResult = 1;
  } else if (pExecMethod == nullptr) {
    // The host calls Exec only after a successful CheckParam, which always
    // selects an operation; refuse rather than guess.
    nResult = ShowMessage(logger_msg::kErrorCommand);
  } else if (m_bSkipProcessCheck) {
    nResult = (this->*pExecMethod)();
  } else {
    const int nProcess = m_pLoggerAcc->initWrite(GetPPID());
    if (nProcess == 0) {
      nResult = (this->*pExecMethod)();
    } else if (nProcess == -1) {
      nResult = ShowMessage(logger_msg::kCheckProcessId);
    } else {
      nResult = ShowMessage(logger_msg::kMonitorToolNotFound);
    }
  }
  logger_trace::Leave(kSigExec);
  return nResult;
}
