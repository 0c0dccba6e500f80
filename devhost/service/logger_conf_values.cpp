#include "devhost/service/logger_conf_values.h"

#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdlib>

#include "devhost/service/logger_conf_keys.h"

namespace devhost {
namespace {

using namespace conf_keys;

enum class ValueKind { kSwitch, kPositive, kPercent };

const struct {
  const char* pszSection;  // kEntrySectionPrefix stands for every entry section
  const char* pszKey;
  ValueKind eKind;
} kRules[] = {
    {kSectionSyslog, kKeyOutput, ValueKind::kSwitch},
    {kSectionSyslog, kKeyInformation, ValueKind::kSwitch},
    {kSectionSyslog, kKeyWarning, ValueKind::kSwitch},
    {kSectionSyslog, kKeyError, ValueKind::kSwitch},
    {kSectionCpu, kKeyAvailable, ValueKind::kSwitch},
    {kSectionCpu, kKeyInterval, ValueKind::kPositive},
    {kSectionCpu, kKeyCount, ValueKind::kPositive},
    {kSectionCpu, kKeyThreshold, ValueKind::kPercent},
    {kSectionMemory, kKeyAvailable, ValueKind::kSwitch},
    {kSectionMemory, kKeyInterval, ValueKind::kPositive},
    {kSectionMemory, kKeyCount, ValueKind::kPositive},
    {kSectionMemory, kKeyThreshold, ValueKind::kPercent},
    {kSectionFileSystem, kKeyAvailable, ValueKind::kSwitch},
    {kSectionFileSystem, kKeyInterval, ValueKind::kPositive},
    {kSectionFileSystem, kKeyCount, ValueKind::kPositive},
    {kEntrySectionPrefix, kKeyAvailable, ValueKind::kSwitch},
    {kEntrySectionPrefix, kKeyThreshold, ValueKind::kPercent},
};

const int kSwitchOn = 0x11;
const int kSwitchOff = 0x10;

const ValueKind* KindOf(const std::string& strSection, const std::string& strKey) {
  const std::string strPrefix = kEntrySectionPrefix;
  const bool bEntry = strSection.compare(0, strPrefix.size(), strPrefix) == 0;
  for (const auto& rule : kRules) {
    if ((bEntry ? strPrefix == rule.pszSection : strSection == rule.pszSection) && strKey == rule.pszKey) {
      return &rule.eKind;
    }
  }
  return nullptr;
}

// False, with strWhy, when strValue is not a value of eKind.
bool ParseValue(ValueKind eKind, const std::string& strValue, int& nValue, std::string& strWhy) {
  int nParsed = 0;
  switch (eKind) {
    case ValueKind::kSwitch:
      strWhy = "a switch (0x11 or 0x10)";
      if (!ParseWholeInt(strValue, 0, nParsed) || (nParsed != kSwitchOn && nParsed != kSwitchOff)) return false;
      break;
    case ValueKind::kPositive:
      strWhy = "a decimal number from 1 to " + std::to_string(INT_MAX);
      if (!ParseWholeInt(strValue, 10, nParsed) || nParsed < 1) return false;
      break;
    case ValueKind::kPercent:
      strWhy = "a decimal number from 0 to 100";
      if (!ParseWholeInt(strValue, 10, nParsed) || nParsed < 0 || nParsed > 100) return false;
      break;
  }
  nValue = nParsed;
  return true;
}

}  // namespace

bool hasValueRule(const std::string& strSection, const std::string& strKey) {
  return KindOf(strSection, strKey) != nullptr;
}

bool ReadConfValue(const std::string& strSection, const std::string& strKey, const std::string& strValue, int& nValue,
                   std::string& strError) {
  const ValueKind* pKind = KindOf(strSection, strKey);
  std::string strWhy;
  if (!pKind || ParseValue(*pKind, strValue, nValue, strWhy)) return true;
  strError = "[" + strSection + "] " + strKey + "=\"" + strValue + "\" is not " + strWhy;
  return false;
}

bool ParseWholeInt(const std::string& strText, int nBase, int& nValue) {
  if (strText.empty() || std::isspace(static_cast<unsigned char>(strText[0]))) return false;
  errno = 0;
  char* pszEnd = nullptr;
  const long nParsed = std::strtol(strText.c_str(), &pszEnd, nBase);
  if (*pszEnd != '\0' || errno == ERANGE || nParsed < INT_MIN || nParsed > INT_MAX) return false;
  nValue = static_cast<int>(nParsed);
  return true;
}

}  // namespace devhost
