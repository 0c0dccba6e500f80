// How the command shows catalogue messages.
#include "plugin/messages.h"
#include "plugin/logger_config_cmd.h"

int CLoggerConfigCmd::ShowMessage(const char* pszMsgId) { return m_pMessage->show(pszMsgId, 0, ""); }

int CLoggerConfigCmd::ShowApplicationError() {
  return m_pMessage->show(logger_msg::kErrorApplication, logger_msg::kApplicationErrorCode, "");
}

int CLoggerConfigCmd::ShowServiceFailure(int nStatus) {
  if (nStatus == logger_msg::kStatusNotInstalled) return ShowMessage(logger_msg::kNotInstalled);
  return ShowApplicationError();
}
