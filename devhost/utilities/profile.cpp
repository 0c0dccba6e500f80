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

#include <climits>
#include <iostream>
#include <iterator>
#include <set>
#include <string>

#include "devhost/files/ini_store.h"
#include "devhost/files/paths.h"
#include "devhost/utilities/refusal_reasons.h"

namespace {

// Files already reported as malformed in this process.
bool isFirstReport(const std::string& strFile) {
  static std::set<std::string> setReported;
  return setReported.insert(strFile).second;
}

int ParseProfileInt(const std::string& strValue) {
  std::string::size_type nPos = strValue.find_first_not_of(" \t");
  if (nPos == std::string::npos) return 0;
  bool bNegative = false;
  if (strValue[nPos] == '+' || strValue[nPos] == '-') bNegative = strValue[nPos++] == '-';
  long long llValue = 0;
  for (; nPos < strValue.size() && strValue[nPos] >= '0' && strValue[nPos] <= '9'; ++nPos) {
    llValue = llValue * 10 + (strValue[nPos] - '0');
    if (llValue > static_cast<long long>(INT_MAX) + 1) break;  // clamped below
  }
  if (bNegative) llValue = -llValue;
  if (llValue > INT_MAX) return INT_MAX;
  if (llValue < INT_MIN) return INT_MIN;
  return static_cast<int>(llValue);
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
  if (isFirstReport(strFile)) std::cerr << "ktl-cli: " << strError << "; the defaults are used" << std::endl;
  return false;
}

// The child of tree named strName without regard to case, or nullptr.
const devhost::IniTree* FindCaseInsensitive(const devhost::IniTree& tree, const char* pszName) {
  for (const auto& child : tree) {
    if (strcasecmp(child.first.c_str(), pszName) == 0) return &child.second;
  }
  return nullptr;
}

int ReadProfileInt(const char* pszSection, const char* pszKey, int nDefault, const char* pszFileName) {
  try {
    devhost::IniTree tree;
    const std::string strFile = pszFileName[0] == '/' ? devhost::UnderRoot(pszFileName) : pszFileName;
    if (!ReadProfile(strFile, tree)) return nDefault;
    const devhost::IniTree* pSection = FindCaseInsensitive(tree, pszSection);
    const devhost::IniTree* pKey = pSection ? FindCaseInsensitive(*pSection, pszKey) : nullptr;
    if (pKey == nullptr || pKey->data().empty()) return nDefault;
    return ParseProfileInt(pKey->data());
  } catch (...) {
    // Served from a C function: nothing may escape it.
    return nDefault;
  }
}

}  // namespace

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
