// MergeConf: completes a pending record with the configuration in effect.
#include "plugin/logger_config_cmd.h"
#include "plugin/trace.h"

namespace {
const char kSigMergeConf[] = "int CLoggerConfigCmd::MergeConf(Velmora_LoggerConf&)";
}  // namespace

int CLoggerConfigCmd::MergeConf(Velmora_LoggerConf& conf) {
  logger_trace::Enter(kSigMergeConf);
  int nResult = 0;
  const int nStatus = m_pLoggerAcc->GetParameter(m_LoggerConf);
  if (nStatus != 0) nResult = ShowServiceFailure(nStatus);
  // A failure whose message reports 0 is not a failure to the caller: the
  // merge goes on with whatever the reader left in m_LoggerConf.
  if (nResult == 0) {
    conf += m_LoggerConf;
    m_pLoggerAcc->ShowConf(conf);
  }
  logger_trace::Leave(kSigMergeConf, nResult);
  return nResult;
}
