// The value writers of the edit commands: one value of the pending
// configuration per call, as the text the logging tool reads back.
#include "plugin/logger_config_cmd.h"
#include "plugin/messages.h"

namespace {
const char kOn[] = "0x11";
const char kOff[] = "0x10";
const int kNotGiven = -1;
const int kSwitchOn = 0x11;
}  // namespace

int CLoggerConfigCmd::EditIntValue(std::string strSection, std::string strKey, int nValue) {
  if (nValue == kNotGiven) return 0;
  if (m_pLoggerAcc->WriteString(strSection, strKey, std::to_string(nValue))) return 0;
  return ShowApplicationError();
}

int CLoggerConfigCmd::EditOnOff(std::string strSection, std::string strKey, bool bShowHold) {
  // Anything but "on" is written as "off".
  const char* pszValue = m_nOnOff == kSwitchOn ? kOn : kOff;
  if (!m_pLoggerAcc->WriteString(strSection, strKey, pszValue)) return ShowApplicationError();
  if (bShowHold) ShowMessage(logger_msg::kHoldParam);
  return 0;
}
