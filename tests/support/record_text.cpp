#include "tests/support/record_text.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace ktl_test {

namespace {

std::string SwitchText(int nValue) {
  if (nValue == 0x11) return "on";
  if (nValue == 0x10) return "off";
  if (nValue == 0) return "-";
  char szHex[16];
  std::snprintf(szHex, sizeof(szHex), "0x%x", static_cast<unsigned int>(nValue));
  return szHex;
}

bool ParseSwitch(const std::string& strText, int& nValue) {
  if (strText == "on" || strText == "off" || strText == "-") {
    nValue = strText == "on" ? 0x11 : strText == "off" ? 0x10 : 0;
    return true;
  }
  char* pEnd = nullptr;
  nValue = static_cast<int>(std::strtol(strText.c_str(), &pEnd, 0));
  return !strText.empty() && *pEnd == '\0';
}

bool ParseInt(const std::string& strText, int& nValue) {
  char* pEnd = nullptr;
  nValue = static_cast<int>(std::strtol(strText.c_str(), &pEnd, 10));
  return !strText.empty() && *pEnd == '\0';
}

std::vector<std::string> Tokens(const std::string& strText) {
  std::istringstream in(strText);
  std::vector<std::string> vecTokens;
  for (std::string strToken; in >> strToken;) vecTokens.push_back(strToken);
  return vecTokens;
}

std::string MonitorLine(const char* pszKey, const Velmora_LoggerUsageMonitorConf& m) {
  if (m.nAvailable == 0 && m.nInterval == 0 && m.nCount == 0 && m.nThreshold == 0) return "";
  return std::string(pszKey) + " = " + SwitchText(m.nAvailable) + " " + std::to_string(m.nInterval) + " " +
         std::to_string(m.nCount) + " " + std::to_string(m.nThreshold);
}

}  // namespace

std::vector<std::string> RecordLines(const Velmora_LoggerConf& conf) {
  std::vector<std::string> vecLines;
  const Velmora_LoggerSyslogOutputConf& s = conf.syslogOutput;
  if (s.nOutput || s.nInformation || s.nWarning || s.nError)
    vecLines.push_back("syslog = " + SwitchText(s.nOutput) + " " + SwitchText(s.nInformation) + " " +
                       SwitchText(s.nWarning) + " " + SwitchText(s.nError));
  for (const std::string& strLine : {MonitorLine("cpu", conf.cpu), MonitorLine("mem", conf.mem)})
    if (!strLine.empty()) vecLines.push_back(strLine);
  if (conf.fs.nAvailable || conf.fs.nInterval || conf.fs.nCount)
    vecLines.push_back("fs = " + SwitchText(conf.fs.nAvailable) + " " + std::to_string(conf.fs.nInterval) + " " +
                       std::to_string(conf.fs.nCount));
  for (const Velmora_LoggerFsThresholdConf& entry : conf.fs.vecThreshold)
    vecLines.push_back("fs." + std::to_string(entry.nIndex) + " = " + entry.strMount + " " +
                       std::to_string(entry.nThreshold) + " " + SwitchText(entry.nAvailable));
  return vecLines;
}

std::string SetRecordPart(Velmora_LoggerConf& conf, const std::string& strKey, const std::string& strValue) {
  const std::vector<std::string> vecTokens = Tokens(strValue);
  const std::string strWrong = "bad value for " + strKey + ": \"" + strValue + "\"";
  if (strKey == "syslog") {
    Velmora_LoggerSyslogOutputConf& s = conf.syslogOutput;
    int* apSwitches[] = {&s.nOutput, &s.nInformation, &s.nWarning, &s.nError};
    bool bOk = vecTokens.size() == 4;
    for (size_t n = 0; bOk && n < 4; ++n) bOk = ParseSwitch(vecTokens[n], *apSwitches[n]);
    return bOk ? "" : strWrong;
  }
  if (strKey == "cpu" || strKey == "mem") {
    Velmora_LoggerUsageMonitorConf& m = strKey == "cpu" ? conf.cpu : conf.mem;
    const bool bOk = vecTokens.size() == 4 && ParseSwitch(vecTokens[0], m.nAvailable) &&
                     ParseInt(vecTokens[1], m.nInterval) && ParseInt(vecTokens[2], m.nCount) &&
                     ParseInt(vecTokens[3], m.nThreshold);
    return bOk ? "" : strWrong;
  }
  if (strKey == "fs") {
    const bool bOk = vecTokens.size() == 3 && ParseSwitch(vecTokens[0], conf.fs.nAvailable) &&
                     ParseInt(vecTokens[1], conf.fs.nInterval) && ParseInt(vecTokens[2], conf.fs.nCount);
    return bOk ? "" : strWrong;
  }
  if (strKey.compare(0, 3, "fs.") == 0) {
    // The mount point is everything before the last two words.
    Velmora_LoggerFsThresholdConf entry;
    const size_t nSwitch = strValue.find_last_of(' ');
    const size_t nThreshold = nSwitch == std::string::npos ? nSwitch : strValue.find_last_of(' ', nSwitch - 1);
    const bool bOk = nThreshold != std::string::npos && ParseInt(strKey.substr(3), entry.nIndex) &&
                     ParseInt(strValue.substr(nThreshold + 1, nSwitch - nThreshold - 1), entry.nThreshold) &&
                     ParseSwitch(strValue.substr(nSwitch + 1), entry.nAvailable);
    if (!bOk) return strWrong;
    entry.strMount = strValue.substr(0, nThreshold);
    conf.fs.vecThreshold.push_back(entry);
    return "";
  }
  return "unknown record part \"" + strKey + "\"";
}

}  // namespace ktl_test
