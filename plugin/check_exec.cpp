// CheckExec: setting commands run only while syslog output is on.
#include "plugin/logger_config_cmd.h"
#include "plugin/messages.h"
#include "plugin/trace.h"

namespace {
const char kSigCheckExec[] = "virtual int CLoggerConfigCmd::CheckExec()";
const char kSigSyslogOn[] = "bool CLoggerConfigCmd::isSyslogoutputOn()";
}  // namespace

int CLoggerConfigCmd::CheckExec() {
  logger_trace::Enter(kSigCheckExec);
  int nResult = 0;
  if (m_nSettingCmd == 1 && !isSyslogoutputOn()) nResult = ShowMessage(logger_msg::kNoneCommand);
  logger_trace::Leave(kSigCheckExec, nResult);
  return nResult;
}

bool CLoggerConfigCmd::isSyslogoutputOn() {
  // The pending configuration alone decides when it can be read: no merge.
  Velmora_LoggerConf conf;
  if (!m_pLoggerAcc->ReadConfFile(conf)) m_pLoggerAcc->GetParameter(conf);
  if (isSwitchOn(conf.syslogOutput.nOutput)) {
    logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigSyslogOn, "SyslogOutput is ON");
    return true;
  }
  logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigSyslogOn, "SyslogOutput is OFF");
  return false;
}
