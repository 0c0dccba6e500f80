// The value checkers: a word against a "|"-separated set, an option/value
// pair, the on/off switch and a bounded decimal number. They show nothing
// and write their out argument only when they accept.
#include <cstdlib>
#include <list>
#include <string>

#include "host/string_util.h"
#include "plugin/logger_config_cmd.h"
#include "plugin/trace.h"

namespace {

const char kSigCheckStrParam[] = "bool CLoggerConfigCmd::CheckStrParam(std::string, std::string, std::string&)";
const char kSigCheckCommandPair[] =
    "bool CLoggerConfigCmd::CheckCommandPair(CCommandParam, std::string, std::string, std::string&)";

const char kSetSeparator[] = "|";
const char kOnOffSet[] = "on|off";
const char kOn[] = "on";
const int kSwitchOn = 0x11;
const int kSwitchOff = 0x10;

// Longer numbers are refused before conversion, so 99999 is the largest
// value any bound can admit and strtol never overflows.
const size_t kMaxDigits = 5;

}  // namespace

bool CLoggerConfigCmd::CheckStrParam(std::string strValue, std::string strAllowed, std::string& strOut) {
  const std::string strLower = CStringUtil::StringToLowerCase(strValue);
  std::string strSet = strAllowed;
  const std::list<std::string> lstEntries = CStringUtil::Split(strSet, kSetSeparator);
  for (const std::string& strEntry : lstEntries) {
    if (strEntry == strLower) {
      strOut = strEntry;
      return true;
    }
  }
  logger_trace::Note(CTraceUtility::TRACE_DBG_PARAM, kSigCheckStrParam, "Parameter(%s) not found in %s",
                     strValue.c_str(), strAllowed.c_str());
  return false;
}

bool CLoggerConfigCmd::CheckCommandPair(CCommandParam param, std::string strName, std::string strAllowed,
                                        std::string& strOut) {
  logger_trace::Enter(kSigCheckCommandPair, strName);
  // A missing option is refused without an exit line.
  if (param.m_strOption.empty()) return false;
  // The option word must match as typed; only the value is case-blind.
  if (param.m_strOption == strName && CheckStrParam(param.m_strValue, strAllowed, strOut)) return true;
  logger_trace::LeaveBool(kSigCheckCommandPair, false);
  return false;
}

bool CLoggerConfigCmd::CheckOnOffParam(std::string strValue, int& nOut) {
  std::string strSwitch;
  if (!CheckStrParam(strValue, kOnOffSet, strSwitch)) return false;
  nOut = strSwitch == kOn ? kSwitchOn : kSwitchOff;
  return true;
}

bool CLoggerConfigCmd::CheckIntParam(std::string strValue, int nMin, int nMax, int& nOut) {
  if (strValue.size() > kMaxDigits) return false;
  for (char c : strValue) {
    if (c < '0' || c > '9') return false;
  }
  // An empty value converts to 0 and is then judged by the bounds.
  const int nValue = static_cast<int>(std::strtol(strValue.c_str(), nullptr, 10));
  if (nValue < nMin || nValue > nMax) return false;
  nOut = nValue;
  return true;
}
