#include "devhost/service/logger_conf_check.h"

namespace devhost {
namespace {

const char kEntryPrefix[] = "FSNAME-";
const char kFileSystemSection[] = "FILESYS";
const char kNumFileSysKey[] = "NumFileSys";
const char kMountKey[] = "Mount";
const int kMaxEntryNumber = 9999;

// The keys of the shipped default, section by section.
const struct {
  const char* pszSection;
  const char* pszKeys[4];
} kRequiredKeys[] = {
    {"Syslog", {"Output", "Information", "Warning", "Error"}},
    {"CPU", {"Available", "Interval", "Count", "Threshold"}},
    {"MEMORY", {"Available", "Interval", "Count", "Threshold"}},
    {kFileSystemSection, {"Available", "Interval", "Count", kNumFileSysKey}},
};

// strText as a decimal number from 0 to kMaxEntryNumber, digits only; -1
// when it is not one.
int SmallNumber(const std::string& strText) {
  if (strText.empty() || strText.size() > 4 || strText.find_first_not_of("0123456789") != std::string::npos) return -1;
  return std::stoi(strText);
}

bool isEntrySection(const std::string& strSection) { return strSection.compare(0, 7, kEntryPrefix) == 0; }

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
  return std::string("[") + kFileSystemSection + "] " + kNumFileSysKey + ": \"" + strValue +
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
    if (!FindIniValue(tree, section.first, kMountKey)) {
      strError = "[" + section.first + "] " + kMountKey + ": missing; every mount-point section names its mount point";
      return false;
    }
    if (nNumber > nHighest) {
      nHighest = nNumber;
      strHighest = section.first;
    }
  }
  const std::string* pNumFileSys = FindIniValue(tree, kFileSystemSection, kNumFileSysKey);
  const int nNumFileSys = pNumFileSys ? SmallNumber(*pNumFileSys) : 0;
  if (nNumFileSys < 0) {
    strError = NotANumFileSys(*pNumFileSys);
    return false;
  }
  if (nNumFileSys < nHighest) {
    strError = std::string("[") + kFileSystemSection + "] " + kNumFileSysKey + ": " +
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
  if (strSection == kFileSystemSection && strKey == kNumFileSysKey && SmallNumber(strValue) < 0) {
    strError = "cannot write " + NotANumFileSys(strValue);
    return false;
  }
  return true;
}

}  // namespace devhost
