// GetPrivateProfileIntA: integer values of INI files, after the API of the
// same name.
//
// An absolute file name is looked up under devhost::UnderRoot, so that tests and
// development machines supply their own copy of an absolute path. Section and
// key names match without regard to case and are never split at ".". The
// value is read like the imitated API does: leading blanks skipped, an
// optional sign, then decimal digits up to the first other character; a value
// with no digit reads 0, and one beyond the range of int is clamped to it.
// The default is returned for a missing or unreadable file, a missing section
// or key, and an empty value. A malformed file is reported once per process
// on standard error, naming the file and line, and gives the defaults.
#include "host/profile.h"

#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#include <climits>
#include <fstream>
#include <iostream>
#include <set>
#include <string>

#include "devhost/files/paths.h"

namespace {

using CaseInsensitiveTree = boost::property_tree::iptree;

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

// False when the file cannot be opened or is malformed.
bool ReadIniFile(const std::string& strFile, CaseInsensitiveTree& tree) {
  std::ifstream in(strFile);
  if (!in) return false;
  try {
    boost::property_tree::read_ini(in, tree);
  } catch (const boost::property_tree::ini_parser_error& e) {
    if (isFirstReport(strFile)) {
      std::cerr << "ktl-cli: " << strFile << ":" << e.line() << ": malformed INI file (" << e.message()
                << "); its values are ignored and the defaults used" << std::endl;
    }
    return false;
  }
  return true;
}

}  // namespace

extern "C" int GetPrivateProfileIntA(const char* pszSection, const char* pszKey, int nDefault,
                                     const char* pszFileName) {
  if (pszSection == nullptr || pszKey == nullptr || pszFileName == nullptr) return nDefault;
  try {
    CaseInsensitiveTree tree;
    const std::string strFile = pszFileName[0] == '/' ? devhost::UnderRoot(pszFileName) : pszFileName;
    if (!ReadIniFile(strFile, tree)) return nDefault;
    // find() looks one name up among the direct children, case-insensitively.
    const auto section = tree.find(pszSection);
    if (section == tree.not_found()) return nDefault;
    const auto key = section->second.find(pszKey);
    if (key == section->second.not_found() || key->second.data().empty()) return nDefault;
    return ParseProfileInt(key->second.data());
  } catch (...) {
    // A C function: nothing may escape it.
    return nDefault;
  }
}
