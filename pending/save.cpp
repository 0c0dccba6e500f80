// Save: makes the pending configuration, completed with the configuration in
// effect, the configuration in effect; then drops the pending one.
#include "plugin/logger_config_cmd.h"
#include "plugin/messages.h"
#include "plugin/trace.h"

namespace {
const char kSigSave[] = "int CLoggerConfigCmd::Save()";
}  // namespace

int CLoggerConfigCmd::Save() {
  logger_trace::Enter(kSigSave);
  if (m_nNoCheck == 0 && !m_pMessage->Inquiry(logger_msg::kAskSave, 0)) {
    logger_trace::Leave(kSigSave, 0);
    return 0;
  }

  // Another session's edits are reported but do not stop the save.
  if (!m_pLoggerAcc->CheckProcessId(GetPPID())) ShowMessage(logger_msg::kCheckProcessId);

  // The failures up to the mount check return without the LEAVE line.
  Velmora_LoggerConf pending;
  if (!m_pLoggerAcc->ReadConfFile(pending)) return ShowApplicationError();
  const int nMerged = MergeConf(pending);
  if (nMerged != 0) return nMerged;
  if (CheckEffectiveFileSystem(pending) != 0) return ShowMessage(logger_msg::kSaveRefused);

  m_pLoggerAcc->ShowConf(pending);
  const int nStatus = m_pLoggerAcc->SetParameter(pending);
  int nResult;
  if (nStatus == 0) {
    nResult = ShowMessage(logger_msg::kSaved);
    // Saved: a pending configuration that cannot be dropped is not reported.
    m_pLoggerAcc->Discard();
  } else {
    // The pending configuration is kept for another try.
    nResult = ShowServiceFailure(nStatus);
  }
  logger_trace::Leave(kSigSave, nResult);
  return nResult;
}
