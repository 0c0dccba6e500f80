// Discard: drops the pending configuration, after asking unless "-nochk".
#include "plugin/logger_config_cmd.h"
#include "plugin/messages.h"
#include "plugin/trace.h"

namespace {
const char kSigDiscard[] = "int CLoggerConfigCmd::Discard()";
}  // namespace

int CLoggerConfigCmd::Discard() {
  logger_trace::Enter(kSigDiscard);
  int nResult = 0;
  if (m_nNoCheck != 0 || m_pMessage->Inquiry(logger_msg::kAskDiscard, 0)) {
    if (m_pLoggerAcc->Discard()) {
      logger_trace::Note(CTraceUtility::TRACE_DBG_NOTE, kSigDiscard, "Discard Completed");
      nResult = ShowMessage(logger_msg::kDiscarded);
    } else {
      nResult = ShowApplicationError();
    }
  }
  logger_trace::Leave(kSigDiscard, nResult);
  return nResult;
}
