// Show: renders one configuration record through the host's template engine
// and writes the text to standard output.
#include <iostream>
#include <sstream>

#include "plugin/logger_config_cmd.h"
#include "plugin/trace.h"

namespace {
const char kSigShow[] = "int CLoggerConfigCmd::Show(Velmora_LoggerConf&)";
const char kInitError[] = "TempleteContext Init Error";
const char kOutputError[] = "TempleteEngine Output Error";
}  // namespace

int CLoggerConfigCmd::Show(Velmora_LoggerConf& conf) {
  logger_trace::Enter(kSigShow);
  CTempleteContext context;
  CTemplateEngine engine;
  if (!context.Init(m_strTemplateName)) {
    // Nothing has been shown yet; the failure ends the display here.
    logger_trace::Note(CTraceUtility::TRACE_DBG_ENV, kSigShow, kInitError);
    return ShowApplicationError();
  }
  m_pLoggerAcc->ShowConf(conf);

  // With syslog output off the report is that one line: the monitors are
  // left out whatever they hold.
  if (ShowSyslogOut(conf, context)) {
    ShowCpuInfo(conf, context);
    ShowMemInfo(conf, context);
    ShowFsInfo(conf, context);
  }

  int nResult = 0;
  std::string strText;
  if (engine.Output(context, strText)) {
    // The engine's text is the whole output: written as is, nothing added.
    std::cout.write(strText.data(), static_cast<std::streamsize>(strText.size()));
  } else {
    logger_trace::Note(CTraceUtility::TRACE_DBG_ENV, kSigShow, kOutputError);
    nResult = ShowApplicationError();
  }
  logger_trace::Leave(kSigShow);
  return nResult;
}

std::string CLoggerConfigCmd::Int2String(int nValue) {
  std::ostringstream stream;
  stream << nValue;
  return stream.str();
}
