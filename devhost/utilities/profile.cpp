// GetPrivateProfileIntA: integer values of INI files, after the API of the
// same name.
//
// An absolute file name is looked up under devhost::UnderRoot, so that tests and
// development machines supply their own copy of an absolute path. The file
// is read by the host's one INI reader (devhost/files/ini_store.h). Section
// and key names match without regard to case and are never split at ".".
// The value is read like the imitated API does: leading blanks skipped, an
// optional sign, then decimal digits up to the first other character; a
// value with no digit reads 0, and one beyond the range of int is clamped to
// it. The default is returned for a missing file, section or key and an
// empty value. An unreadable or malformed file is reported once per process
// on standard error, naming the file and the error, and gives the defaults.
// Every value served is noted for the reasons of a refusal
// (devhost/utilities/refusal_reasons.h).
#include "host/profile.h"

#include <strings.h>

#include <cctype>
#include <climits>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "devhost/files/ini_store.h"
#include "devhost/files/paths.h"
#include "devhost/utilities/profile_reports.h"
#include "devhost/utilities/refusal_reasons.h"
#include "devhost/utilities/terminal_text.h"

namespace {

// What this command reported, and the problems of the keys it read, by
// file, section and key as the caller named them (upper case).
struct CReports {
  std::set<std::string> setReported;
  std::map<std::string, std::string> mapProblems;
};

CReports& Reports() {
  static CReports reports;
  return reports;
}

std::string ProblemKey(const std::string& strFile, const std::string& strSection, const std::string& strKey) {
  std::string strText = strFile + '\n' + strSection + '\n' + strKey;
  for (char& c : strText) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return strText;
}

// Reports strText on standard error, once per command.
void Report(const std::string& strText) {
  if (Reports().setReported.insert(strText).second) std::cerr << "ktl-cli: " << strText << std::endl;
}

// How the value reads: as the imitated API reads it, and whether it is a
// number (blanks, a sign and digits, nothing else) that fits an int.
struct CProfileValue {
  int nValue = 0;
  bool bNumber = false;
  bool bFits = true;
};

CProfileValue ParseProfileInt(const std::string& strValue) {
  CProfileValue value;
  std::string::size_type nPos = strValue.find_first_not_of(" \t");
  if (nPos == std::string::npos) return value;
  bool bNegative = false;
  if (strValue[nPos] == '+' || strValue[nPos] == '-') bNegative = strValue[nPos++] == '-';
  const std::string::size_type nDigits = nPos;
  long long llValue = 0;
  for (; nPos < strValue.size() && strValue[nPos] >= '0' && strValue[nPos] <= '9'; ++nPos) {
    if (llValue <= static_cast<long long>(INT_MAX) + 1) llValue = llValue * 10 + (strValue[nPos] - '0');
  }
  value.bNumber = nPos > nDigits && strValue.find_first_not_of(" \t", nPos) == std::string::npos;
  if (bNegative) llValue = -llValue;
  value.bFits = llValue >= INT_MIN && llValue <= INT_MAX;
  value.nValue = llValue > INT_MAX ? INT_MAX : llValue < INT_MIN ? INT_MIN : static_cast<int>(llValue);
  return value;
}

// The first name among tree's children that another one repeats without
// regard to case, or nullptr. Names match that way, so a file holding such
// a pair does not say which value it means.
const std::string* RepeatedName(const devhost::IniTree& tree) {
  for (auto it = tree.begin(); it != tree.end(); ++it) {
    for (auto later = std::next(it); later != tree.end(); ++later) {
      if (strcasecmp(it->first.c_str(), later->first.c_str()) == 0) return &later->first;
    }
  }
  return nullptr;
}

// False when the file is missing, unreadable or malformed.
bool ReadProfile(const std::string& strFile, devhost::IniTree& tree) {
  std::string strError;
  switch (devhost::ReadIniFile(strFile, tree, strError)) {
    case devhost::IniRead::kOk: {
      const std::string* pRepeated = RepeatedName(tree);
      for (auto section = tree.begin(); !pRepeated && section != tree.end(); ++section) {
        pRepeated = RepeatedName(section->second);
      }
      if (!pRepeated) return true;
      strError = strFile + ": malformed INI file: \"" + *pRepeated + "\" appears twice (names ignore case)";
      break;
    }
    case devhost::IniRead::kMissing:
      return false;
    case devhost::IniRead::kError:
      break;
  }
  Report(strError + "; the defaults are used");
  return false;
}

// The child of tree named strName without regard to case, or nullptr.
const devhost::IniTree* FindCaseInsensitive(const devhost::IniTree& tree, const char* pszName) {
  for (const auto& child : tree) {
    if (strcasecmp(child.first.c_str(), pszName) == 0) return &child.second;
  }
  return nullptr;
}

// "X_MAX" for "X_MIN" and the other way round; "" for other keys.
std::string PartnerKey(const std::string& strKey) {
  static const std::string kMin = "_MIN", kMax = "_MAX";
  if (strKey.size() <= kMin.size()) return "";
  const std::string strStem = strKey.substr(0, strKey.size() - kMin.size());
  const std::string strSuffix = strKey.substr(strStem.size());
  if (strcasecmp(strSuffix.c_str(), kMin.c_str()) == 0) return strStem + kMax;
  if (strcasecmp(strSuffix.c_str(), kMax.c_str()) == 0) return strStem + kMin;
  return "";
}

// Reports what is wrong with the value of [pszSection] pszKey, and with it
// beside its partner (a minimum above its maximum), and keeps it for help.
void CheckProfileValue(const std::string& strFile, const char* pszFileName, const devhost::IniTree& section,
                       const char* pszSection, const char* pszKey, const std::string& strRaw,
                       const CProfileValue& value) {
  const std::string strWhere = devhost::EscapeControlBytes(strFile + ": [" + pszSection + "] " + pszKey);
  const std::string strRead = std::to_string(value.nValue);
  std::string strProblem;
  if (!value.bNumber) {
    strProblem = std::string(pszKey) + " is not a number, read as " + strRead;
    Report(devhost::EscapeControlBytes(strFile + ": [" + pszSection + "] " + pszKey + "=\"" + strRaw +
                                       "\" is not a number; it is read as " + strRead));
  } else if (!value.bFits) {
    strProblem = std::string(pszKey) + " does not fit an int, read as " + strRead;
    Report(strWhere + "=" + devhost::EscapeControlBytes(strRaw) + " does not fit an int; it is read as " + strRead);
  }
  const std::string strPartner = PartnerKey(pszKey);
  const devhost::IniTree* pPartner = strPartner.empty() ? nullptr : FindCaseInsensitive(section, strPartner.c_str());
  if (strProblem.empty() && pPartner && !pPartner->data().empty()) {
    const int nPartner = ParseProfileInt(pPartner->data()).nValue;
    const bool bIsMin = strPartner.size() >= 4 && strcasecmp(strPartner.c_str() + strPartner.size() - 4, "_MAX") == 0;
    const int nMin = bIsMin ? value.nValue : nPartner;
    const int nMax = bIsMin ? nPartner : value.nValue;
    if (nMin > nMax) {
      const std::string strMinKey = bIsMin ? pszKey : strPartner;
      const std::string strMaxKey = bIsMin ? strPartner : pszKey;
      strProblem = strMinKey + " " + std::to_string(nMin) + " is above " + strMaxKey + " " + std::to_string(nMax);
      Report(devhost::EscapeControlBytes(strFile + ": [" + pszSection + "] " + strMinKey + "=" + std::to_string(nMin) +
                                         " is above " + strMaxKey + "=" + std::to_string(nMax) +
                                         "; no value is in that range"));
    }
  }
  if (!strProblem.empty()) Reports().mapProblems[ProblemKey(pszFileName, pszSection, pszKey)] = strProblem;
}

int ReadProfileInt(const char* pszSection, const char* pszKey, int nDefault, const char* pszFileName) {
  try {
    devhost::IniTree tree;
    const std::string strFile = pszFileName[0] == '/' ? devhost::UnderRoot(pszFileName) : pszFileName;
    if (!ReadProfile(strFile, tree)) return nDefault;
    const devhost::IniTree* pSection = FindCaseInsensitive(tree, pszSection);
    const devhost::IniTree* pKey = pSection ? FindCaseInsensitive(*pSection, pszKey) : nullptr;
    if (pKey == nullptr || pKey->data().empty()) return nDefault;
    const CProfileValue value = ParseProfileInt(pKey->data());
    CheckProfileValue(strFile, pszFileName, *pSection, pszSection, pszKey, pKey->data(), value);
    return value.nValue;
  } catch (...) {
    // Served from a C function: nothing may escape it.
    return nDefault;
  }
}

}  // namespace

namespace devhost {

void StartProfileReports() { Reports() = CReports(); }

std::string ProfileProblem(const std::string& strFile, const std::string& strSection, const std::string& strKey) {
  const auto found = Reports().mapProblems.find(ProblemKey(strFile, strSection, strKey));
  return found == Reports().mapProblems.end() ? std::string() : found->second;
}

}  // namespace devhost

extern "C" int GetPrivateProfileIntA(const char* pszSection, const char* pszKey, int nDefault,
                                     const char* pszFileName) {
  if (pszSection == nullptr || pszKey == nullptr || pszFileName == nullptr) return nDefault;
  const int nValue = ReadProfileInt(pszSection, pszKey, nDefault, pszFileName);
  try {
    devhost::NoteLimitRead(pszSection, pszKey, pszFileName, nValue);
  } catch (...) {
    // The value stands even when it cannot be noted.
  }
  return nValue;
}
