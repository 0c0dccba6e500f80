#include "devhost/service/logger_conf_check.h"

#include "devhost/service/logger_conf_keys.h"
#include "devhost/service/logger_conf_values.h"

namespace devhost {
namespace {

using namespace conf_keys;

// The keys of the shipped default, section by section.
const struct {
  const char* pszSection;
  const char* pszKeys[4];
} kRequiredKeys[] = {
    {kSectionSyslog, {kKeyOutput, kKeyInformation, kKeyWarning, kKeyError}},
    {kSectionCpu, {kKeyAvailable, kKeyInterval, kKeyCount, kKeyThreshold}},
    {kSectionMemory, {kKeyAvailable, kKeyInterval, kKeyCount, kKeyThreshold}},
    {kSectionFileSystem, {kKeyAvailable, kKeyInterval, kKeyCount, kKeyNumFileSys}},
};

// strText as a decimal number from 0 to kMaxEntryNumber, digits only; -1
// when it is not one.
int SmallNumber(const std::string& strText) {
  if (strText.empty() || strText.size() > 4 || strText.find_first_not_of("0123456789") != std::string::npos) return -1;
  return std::stoi(strText);
}

bool isEntrySection(const std::string& strSection) { return strSection.compare(0, 7, kEntrySectionPrefix) == 0; }

// The number of an entry section, "FSNAME-" and 1 to 9999 without leading
// zeros; -1 when the name carries no such number.
int EntryNumber(const std::string& strSection) {
  const std::string strNumber = strSection.substr(7);
  if (strNumber.empty() || strNumber[0] == '0') return -1;
  const int nNumber = SmallNumber(strNumber);
  return nNumber >= 1 ? nNumber : -1;
}

std::string NotAnEntrySection(const std::string& strSection) {
  return "[" + strSection + "]: not a mount-point section (FSNAME-1 to FSNAME-9999)";
}

std::string NotANumFileSys(const std::string& strValue) {
  return std::string("[") + kSectionFileSystem + "] " + kKeyNumFileSys + ": \"" + strValue +
         "\" is not a number from 0 to 9999";
}

}  // namespace

bool CheckEntries(const IniTree& tree, std::string& strError) {
  int nHighest = 0;
  std::string strHighest;
  for (const auto& section : tree) {
    if (!isEntrySection(section.first)) continue;
    const int nNumber = EntryNumber(section.first);
    if (nNumber < 0) {
      strError = NotAnEntrySection(section.first);
      return false;
    }
    if (!FindIniValue(tree, section.first, kKeyMount)) {
      strError = "[" + section.first + "] " + kKeyMount + ": missing; every mount-point section names its mount point";
      return false;
    }
    if (nNumber > nHighest) {
      nHighest = nNumber;
      strHighest = section.first;
    }
  }
  const std::string* pNumFileSys = FindIniValue(tree, kSectionFileSystem, kKeyNumFileSys);
  const int nNumFileSys = pNumFileSys ? SmallNumber(*pNumFileSys) : 0;
  if (nNumFileSys < 0) {
    strError = NotANumFileSys(*pNumFileSys);
    return false;
  }
  if (nNumFileSys < nHighest) {
    strError = std::string("[") + kSectionFileSystem + "] " + kKeyNumFileSys + ": " +
               (pNumFileSys ? "\"" + *pNumFileSys + "\" is below the highest entry number, [" + strHighest + "]"
                            : "missing while [" + strHighest + "] exists");
    return false;
  }
  return true;
}

bool CheckComplete(const IniTree& tree, std::string& strError) {
  for (const auto& required : kRequiredKeys) {
    for (const char* pszKey : required.pszKeys) {
      if (!FindIniValue(tree, required.pszSection, pszKey)) {
        strError = std::string("[") + required.pszSection + "] " + pszKey +
                   ": missing; a configuration holds every key of the shipped default";
        return false;
      }
    }
  }
  return true;
}

bool CheckEdit(const std::string& strSection, const std::string& strKey, const std::string& strValue,
               std::string& strError) {
  if (isEntrySection(strSection) && EntryNumber(strSection) < 0) {
    strError = "cannot write " + NotAnEntrySection(strSection);
    return false;
  }
  if (strSection == kSectionFileSystem && strKey == kKeyNumFileSys && SmallNumber(strValue) < 0) {
    strError = "cannot write " + NotANumFileSys(strValue);
    return false;
  }
  // The rule by which the value will be read back.
  int nIgnored = 0;
  if (!ReadConfValue(strSection, strKey, strValue, nIgnored, strError)) {
    strError = "cannot write " + strError;
    return false;
  }
  return true;
}

}  // namespace devhost
