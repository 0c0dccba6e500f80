#include "tests/support/case_text.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace ktl_test {

namespace {

// A part of the record: its fields, the first nSwitches of them switches.
struct Part {
  const char* pszName;
  std::vector<int*> vecFields;
  size_t nSwitches;
};

std::vector<Part> Parts(Velmora_LoggerConf& c) {
  Velmora_LoggerSyslogOutputConf& s = c.syslogOutput;
  return {{"syslog", {&s.nOutput, &s.nInformation, &s.nWarning, &s.nError}, 4},
          {"cpu", {&c.cpu.nAvailable, &c.cpu.nInterval, &c.cpu.nCount, &c.cpu.nThreshold}, 1},
          {"mem", {&c.mem.nAvailable, &c.mem.nInterval, &c.mem.nCount, &c.mem.nThreshold}, 1},
          {"fs", {&c.fs.nAvailable, &c.fs.nInterval, &c.fs.nCount}, 1}};
}

std::string SwitchText(int nValue) {
  char szText[16];
  std::snprintf(szText, sizeof(szText), "0x%x", static_cast<unsigned int>(nValue));
  return nValue == 0x11 ? "on" : nValue == 0x10 ? "off" : nValue == 0 ? "-" : szText;
}

// A switch word or a number (decimal, or hex with "0x").
bool ParseValue(const std::string& strText, int& nValue) {
  char* pEnd = nullptr;
  nValue = strText == "on"    ? 0x11
           : strText == "off" ? 0x10
           : strText == "-"   ? 0
                              : std::strtol(strText.c_str(), &pEnd, 0);
  return !strText.empty() && (pEnd == nullptr || *pEnd == '\0');
}

std::string EscapeByte(unsigned char c) {
  char szHex[8];
  std::snprintf(szHex, sizeof(szHex), "\\x%02X", c);
  return c == '\\'               ? "\\\\"
         : c == '\n'             ? "\\n"
         : c == '\t'             ? "\\t"
         : c == '\0'             ? "\\0"
         : c >= 0x20 && c < 0x7f ? std::string(1, static_cast<char>(c))
                                 : szHex;
}

// Reads one escaped byte at nAt into c; returns the position after it.
size_t UnescapeByte(const std::string& strText, size_t nAt, char& c) {
  const char cNext = nAt + 1 < strText.size() ? strText[nAt + 1] : '\0';
  if (strText[nAt] != '\\' || cNext == '\0') return c = strText[nAt], nAt + 1;
  if (cNext == 'x') return c = static_cast<char>(std::strtol(strText.substr(nAt + 2, 2).c_str(), nullptr, 16)), nAt + 4;
  c = cNext == 'n' ? '\n' : cNext == 't' ? '\t' : cNext == '0' ? '\0' : cNext;
  return nAt + 2;
}

}  // namespace

std::vector<std::string> RecordLines(const Velmora_LoggerConf& conf) {
  Velmora_LoggerConf copy = conf;
  std::vector<std::string> vecLines;
  for (const Part& part : Parts(copy)) {
    std::string strLine = std::string(part.pszName) + " =";
    bool bSet = false;
    for (size_t n = 0; n < part.vecFields.size(); ++n) {
      bSet = bSet || *part.vecFields[n] != 0;
      strLine += " " + (n < part.nSwitches ? SwitchText(*part.vecFields[n]) : std::to_string(*part.vecFields[n]));
    }
    if (bSet) vecLines.push_back(strLine);
  }
  for (const Velmora_LoggerFsThresholdConf& entry : conf.fs.vecThreshold)
    vecLines.push_back("fs." + std::to_string(entry.nIndex) + " = " + entry.strMount + " " +
                       std::to_string(entry.nThreshold) + " " + SwitchText(entry.nAvailable));
  return vecLines;
}

std::string SetRecordPart(Velmora_LoggerConf& conf, const std::string& strPart, const std::string& strValue) {
  const std::string strWrong = "bad value for record part " + strPart + ": \"" + strValue + "\"";
  std::istringstream in(strValue);
  std::vector<std::string> vecWords;
  for (std::string strWord; in >> strWord;) vecWords.push_back(strWord);
  for (const Part& part : Parts(conf)) {
    if (strPart != part.pszName) continue;
    bool bOk = vecWords.size() == part.vecFields.size();
    for (size_t n = 0; bOk && n < vecWords.size(); ++n) bOk = ParseValue(vecWords[n], *part.vecFields[n]);
    return bOk ? "" : strWrong;
  }
  // An entry: the mount point is everything before the last two words.
  Velmora_LoggerFsThresholdConf entry;
  const size_t nSwitch = strValue.rfind(' ');
  const size_t nThreshold =
      nSwitch == std::string::npos || nSwitch == 0 ? std::string::npos : strValue.rfind(' ', nSwitch - 1);
  if (strPart.compare(0, 3, "fs.") != 0) return "unknown record part " + strPart;
  if (nThreshold == std::string::npos || !ParseValue(strPart.substr(3), entry.nIndex) ||
      !ParseValue(strValue.substr(nThreshold + 1, nSwitch - nThreshold - 1), entry.nThreshold) ||
      !ParseValue(strValue.substr(nSwitch + 1), entry.nAvailable))
    return strWrong;
  entry.strMount = strValue.substr(0, nThreshold);
  conf.fs.vecThreshold.push_back(entry);
  return "";
}

std::string Escape(const std::string& strText) {
  std::string strOut;
  for (size_t n = 0, nEnd; n < strText.size(); n = nEnd) {
    for (nEnd = n; nEnd < strText.size() && strText[nEnd] == strText[n];) ++nEnd;
    const std::string strByte = EscapeByte(static_cast<unsigned char>(strText[n]));
    if (nEnd - n >= 20) strOut += "{" + strByte + "*" + std::to_string(nEnd - n) + "}";
    for (size_t k = n; nEnd - n < 20 && k < nEnd; ++k) strOut += strByte;
  }
  return strOut;
}

std::string Unescape(const std::string& strText) {
  std::string strOut;
  for (size_t n = 0; n < strText.size();) {
    char c;
    if (strText[n] == '{') {  // "{c*N}"
      const size_t nStar = UnescapeByte(strText, n + 1, c), nClose = strText.find('}', nStar);
      if (nStar < strText.size() && strText[nStar] == '*' && nClose != std::string::npos && nClose > nStar + 1 &&
          strText.find_first_not_of("0123456789", nStar + 1) == nClose) {
        strOut.append(std::stoul(strText.substr(nStar + 1)), c);
        n = nClose + 1;
        continue;
      }
    }
    n = UnescapeByte(strText, n, c);
    strOut += c;
  }
  return strOut;
}

}  // namespace ktl_test
