// Confirm: shows the configuration in effect ("cur") or the pending one
// completed with it (anything else, "edit"). Reads, merges and displays;
// writes no configuration.
#include "plugin/logger_config_cmd.h"
#include "plugin/trace.h"

namespace {
const char kSigConfirm[] = "int CLoggerConfigCmd::Confirm()";
const char kConfirmCurrent[] = "cur";
}  // namespace

int CLoggerConfigCmd::Confirm() {
  logger_trace::Enter(kSigConfirm, m_strConfirmType);
  Velmora_LoggerConf conf;
  // With nothing pending, "edit" shows the configuration in effect, as "cur".
  if (m_strConfirmType != kConfirmCurrent && m_pLoggerAcc->ReadConfFile(conf)) {
    // MergeConf has shown its own message when it fails.
    const int nMerge = MergeConf(conf);
    if (nMerge != 0) return nMerge;
  } else {
    const int nStatus = m_pLoggerAcc->GetParameter(conf);
    if (nStatus != 0) return ShowServiceFailure(nStatus);
  }
  const int nResult = Show(conf);
  logger_trace::Leave(kSigConfirm, nResult);
  return nResult;
}
