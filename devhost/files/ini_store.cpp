#include "devhost/files/ini_store.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <boost/property_tree/ini_parser.hpp>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <sstream>
#include <vector>

#include "devhost/files/command_lock.h"
#include "devhost/files/descriptor_io.h"
#include "devhost/files/fault_injection.h"
#include "devhost/files/leftovers.h"
#include "devhost/files/paths.h"
#include "devhost/files/safe_open.h"

namespace devhost {
namespace {

std::string ErrnoText(int nErrno) { return std::strerror(nErrno); }

std::string DirectoryOf(const std::string& strPath) {
  const std::string::size_type nSlash = strPath.rfind('/');
  if (nSlash == std::string::npos) return ".";
  return nSlash == 0 ? std::string("/") : strPath.substr(0, nSlash);
}

// Flushes a directory so that a rename or removal in it survives a crash.
// The change itself is already visible, so a failure here is only warned
// about: the caller's operation did take place.
void SyncDirectory(const std::string& strDir) {
  const int nFd = open(strDir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (nFd < 0 || fsync(nFd) != 0) {
    std::cerr << "warning: cannot flush directory " << strDir << ": " << ErrnoText(errno) << '\n';
  }
  if (nFd >= 0) close(nFd);
}

// Puts strTemp in strPath's place; false with errno set on failure.
//
// A rename over an existing file makes ext4 allocate the new file's blocks
// first, so that a power cut cannot leave the file empty; that costs a
// journal wait of about a millisecond, more than the rest of an edit. A
// replacement that is not flushed anyway (Flush::kNone) swaps the two names
// instead, which ext4 does not wait for, and sets bTempHoldsOld: strTemp then
// names the old content, for the caller to remove. File systems without the
// swap, and a target that is not an existing regular file (a directory must
// stay where it is), get the plain rename.
bool Replace(const std::string& strTemp, const std::string& strPath, Flush eFlush, bool& bTempHoldsOld) {
  BeforeFileChange();
  struct stat st;
  if (eFlush == Flush::kNone && lstat(strPath.c_str(), &st) == 0 && S_ISREG(st.st_mode) &&
      renameat2(AT_FDCWD, strTemp.c_str(), AT_FDCWD, strPath.c_str(), RENAME_EXCHANGE) == 0) {
    bTempHoldsOld = true;
    return true;
  }
  return rename(strTemp.c_str(), strPath.c_str()) == 0;
}

}  // namespace

IniRead ReadTextFile(const std::string& strPath, std::string& strContent, std::string& strError) {
  // The host's own files must be the caller's; shipped files are taken as
  // installed (a developer's checkout may well be group-writable).
  const bool bStateFile = DirectoryOf(strPath) == StateDir();
  const int nFd =
      bStateFile ? OpenTrusted(strPath, O_RDONLY, 0, strError) : OpenNoFollow(strPath, O_RDONLY, 0, strError);
  if (nFd < 0) {
    if (errno == ENOENT) return IniRead::kMissing;
    return IniRead::kError;
  }
  std::string strRead;
  const bool bRead = ReadAll(nFd, strRead);
  const int nReadErrno = errno;
  close(nFd);
  if (!bRead) {
    strError = "cannot read " + strPath + ": " + ErrnoText(nReadErrno);
    return IniRead::kError;
  }
  strContent.swap(strRead);
  return IniRead::kOk;
}

bool ParseIniText(const std::string& strContent, const std::string& strPath, IniTree& tree, std::string& strError) {
  IniTree parsed;
  try {
    std::istringstream stream(strContent);
    boost::property_tree::read_ini(stream, parsed);
  } catch (const boost::property_tree::ini_parser_error& e) {
    strError = strPath + ":" + std::to_string(e.line()) + ": malformed INI file: " + e.message();
    return false;
  } catch (const boost::property_tree::ptree_error& e) {
    strError = strPath + ": malformed INI file: " + e.what();
    return false;
  }
  // The parser keeps a key that precedes every section header at the top
  // level; no such key has a meaning here, so it would be silently lost.
  for (const auto& node : parsed) {
    if (node.second.empty() && !node.second.data().empty()) {
      strError = strPath + ": malformed INI file: key \"" + node.first + "\" stands before any section";
      return false;
    }
  }
  tree.swap(parsed);
  return true;
}

IniRead ReadIniFile(const std::string& strPath, IniTree& tree, std::string& strError) {
  std::string strContent;
  const IniRead eRead = ReadTextFile(strPath, strContent, strError);
  if (eRead != IniRead::kOk) return eRead;
  return ParseIniText(strContent, strPath, tree, strError) ? IniRead::kOk : IniRead::kError;
}

bool WriteIniFile(const std::string& strPath, const IniTree& tree, std::string& strError, Flush eFlush) {
  std::ostringstream text;
  try {
    boost::property_tree::write_ini(text, tree);
  } catch (const boost::property_tree::ptree_error& e) {
    strError = "cannot write " + strPath + ": " + e.what();
    return false;
  }
  return WriteFileAtomically(strPath, text.str(), strError, eFlush);
}

bool WriteFileAtomically(const std::string& strPath, const std::string& strContent, std::string& strError,
                         Flush eFlush) {
  if (DirectoryOf(strPath) == StateDir()) RemoveStateLeftovers();
  std::string strTemplate = TempFileTemplate(strPath + ".tmp.");
  std::vector<char> tempName(strTemplate.begin(), strTemplate.end());
  tempName.push_back('\0');
  BeforeFileChange();
  const int nFd = mkostemp(tempName.data(), O_CLOEXEC);
  if (nFd < 0) {
    strError = "cannot replace " + strPath + ": cannot create a temporary file: " + ErrnoText(errno);
    return false;
  }
  const std::string strTemp(tempName.data());

  const char* pszFailedStep = nullptr;
  int nErrno = 0;
  // mkostemp creates the file private; a configuration is readable by all.
  if (fchmod(nFd, 0644) != 0) {
    pszFailedStep = "cannot set the mode of the temporary file";
  } else if (!WriteAll(nFd, strContent, BeforeFileChange)) {
    pszFailedStep = "cannot write the temporary file";
  } else if (eFlush == Flush::kToDisk && fsync(nFd) != 0) {
    pszFailedStep = "cannot flush the temporary file";
  }
  if (pszFailedStep) nErrno = errno;
  if (close(nFd) != 0 && !pszFailedStep) {
    pszFailedStep = "cannot close the temporary file";
    nErrno = errno;
  }
  bool bTempHoldsOld = false;
  if (!pszFailedStep && !Replace(strTemp, strPath, eFlush, bTempHoldsOld)) {
    pszFailedStep = "cannot rename the temporary file over it";
    nErrno = errno;
  }
  if (pszFailedStep || bTempHoldsOld) {
    BeforeFileChange();
    unlink(strTemp.c_str());
  }
  if (pszFailedStep) {
    strError = "cannot replace " + strPath + ": " + pszFailedStep + ": " + ErrnoText(nErrno);
    return false;
  }
  if (eFlush == Flush::kToDisk) SyncDirectory(DirectoryOf(strPath));
  return true;
}

bool RemoveFile(const std::string& strPath, std::string& strError, Flush eFlush) {
  BeforeFileChange();
  if (unlink(strPath.c_str()) != 0) {
    if (errno == ENOENT) return true;
    strError = "cannot remove " + strPath + ": " + ErrnoText(errno);
    return false;
  }
  if (eFlush == Flush::kToDisk) SyncDirectory(DirectoryOf(strPath));
  return true;
}

bool isPresent(const std::string& strPath) {
  struct stat st;
  return lstat(strPath.c_str(), &st) == 0;
}

const std::string* FindIniValue(const IniTree& tree, const std::string& strSection, const std::string& strKey) {
  const auto section = tree.find(strSection);
  if (section == tree.not_found()) return nullptr;
  const auto key = section->second.find(strKey);
  if (key == section->second.not_found()) return nullptr;
  return &key->second.data();
}

bool isStorableIniEntry(const std::string& strSection, const std::string& strKey, const std::string& strValue,
                        std::string& strError) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  const auto hasBlankEnds = [&](const std::string& str) {
    return !str.empty() && (isBlank(str.front()) || isBlank(str.back()));
  };
  const auto hasLineBreak = [](const std::string& str) { return str.find_first_of("\r\n") != std::string::npos; };
  std::string strProblem;
  if (strSection.empty() || strSection.find(']') != std::string::npos) {
    strProblem = "the section name is empty or contains \"]\"";
  } else if (strKey.empty() || strKey.find('=') != std::string::npos || strKey[0] == ';' || strKey[0] == '#' ||
             strKey[0] == '[') {
    strProblem = "the key is empty, contains \"=\" or starts like a comment or a section";
  } else if (hasLineBreak(strSection) || hasLineBreak(strKey) || hasLineBreak(strValue)) {
    strProblem = "it contains a line break";
  } else if (hasBlankEnds(strSection) || hasBlankEnds(strKey) || hasBlankEnds(strValue)) {
    strProblem = "it has blanks at an end, which the file would drop";
  } else {
    return true;
  }
  strError = "cannot store [" + strSection + "] " + strKey + "=" + strValue + ": " + strProblem;
  return false;
}

void SetIniValue(IniTree& tree, const std::string& strSection, const std::string& strKey, const std::string& strValue) {
  auto section = tree.find(strSection);
  IniTree& sectionTree =
      section == tree.not_found() ? tree.push_back(std::make_pair(strSection, IniTree()))->second : section->second;
  auto key = sectionTree.find(strKey);
  if (key == sectionTree.not_found()) {
    sectionTree.push_back(std::make_pair(strKey, IniTree(strValue)));
  } else {
    key->second.data() = strValue;
  }
}

}  // namespace devhost
