// Reads command descriptions (see command_description.h) with
// Boost.PropertyTree's INI parser. Names are looked up among the direct
// children only, so a "." in a name is never taken for a path.
#include "devhost/help/command_description.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#include <sstream>

#include "devhost/files/ini_store.h"
#include "devhost/files/paths.h"
#include "host/profile.h"

namespace devhost {
namespace {

using Tree = boost::property_tree::ptree;

const char kPluginPrefix[] = "libktl_cli-";
const char kPluginSuffix[] = ".so";
const char kDescriptionSuffix[] = ".command.ini";

std::vector<std::string> SplitWords(const std::string& strText, char cSeparator = ' ') {
  std::vector<std::string> vecWords;
  std::istringstream in(strText);
  for (std::string strWord; std::getline(in, strWord, cSeparator);) {
    if (!strWord.empty()) vecWords.push_back(strWord);
  }
  return vecWords;
}

// The value of key strKey in section tree, or empty.
std::string Value(const Tree& section, const std::string& strKey) {
  const auto it = section.find(strKey);
  return it == section.not_found() ? std::string() : it->second.data();
}

// Section strName, or false with strError naming it.
bool Section(const Tree& tree, const std::string& strName, const Tree*& pSection, const std::string& strFile,
             std::string& strError) {
  const auto it = tree.find(strName);
  if (it == tree.not_found()) {
    strError = strFile + ": no section [" + strName + "]";
    return false;
  }
  pSection = &it->second;
  return true;
}

bool ReadOption(const Tree& tree, const std::string& strForm, std::string strWord, COptionDescription& option,
                const std::string& strFile, std::string& strError) {
  if (strWord.size() > 2 && strWord.front() == '[' && strWord.back() == ']') {
    option.bOptional = true;
    strWord = strWord.substr(1, strWord.size() - 2);
  }
  option.strName = strWord;
  // An option that takes no value and needs no words may have no section.
  const auto it = tree.find(strForm + " " + strWord);
  if (it == tree.not_found()) return true;
  const Tree* pSection = &it->second;
  option.vecValues = SplitWords(Value(*pSection, "values"), '|');
  option.vecValueMeanings = SplitWords(Value(*pSection, "value_meanings"), '|');
  option.strPlaceholder = Value(*pSection, "value");
  option.strSample = Value(*pSection, "sample");
  option.strCompleteFrom = Value(*pSection, "complete_from");
  option.strNumberStem = Value(*pSection, "number");
  if (option.isNumber()) option.strPlaceholder = "N";
  option.strSection = Value(*pSection, "section");
  option.vecSections = SplitWords(Value(*pSection, "sections"));
  option.strNotFor = Value(*pSection, "not_for");
  option.bOptionalValue = Value(*pSection, "optional_value") == "yes";
  option.strEndsForm = Value(*pSection, "ends_form");
  option.strMeaning = Value(*pSection, "meaning");
  if (!option.vecSections.empty() && option.vecSections.size() != option.vecValues.size()) {
    strError = strFile + ": [" + strForm + " " + strWord + "] names " + std::to_string(option.vecSections.size()) +
               " sections for " + std::to_string(option.vecValues.size()) + " values";
    return false;
  }
  if (!option.vecValueMeanings.empty() && option.vecValueMeanings.size() != option.vecValues.size()) {
    strError = strFile + ": [" + strForm + " " + strWord + "] gives " + std::to_string(option.vecValueMeanings.size()) +
               " value meanings for " + std::to_string(option.vecValues.size()) + " values";
    return false;
  }
  return true;
}

bool ReadForm(const Tree& tree, const std::string& strName, CFormDescription& form, const std::string& strFile,
              std::string& strError) {
  form.strName = strName;
  const Tree* pSection = nullptr;
  if (!Section(tree, "form " + strName, pSection, strFile, strError)) return false;
  form.strSummary = Value(*pSection, "summary");
  form.bReadOnly = Value(*pSection, "read_only") == "yes";
  for (const std::string& strWord : SplitWords(Value(*pSection, "options"))) {
    COptionDescription option;
    if (!ReadOption(tree, strName, strWord, option, strFile, strError)) return false;
    form.vecOptions.push_back(option);
  }
  if (form.vecOptions.empty()) {
    strError = strFile + ": [form " + strName + "] has no options";
    return false;
  }
  return true;
}

bool ReadBuiltinLimits(const Tree& tree, CCommandDescription& description, const std::string& strFile,
                       std::string& strError) {
  const std::string strPrefix = "limits ";
  for (const auto& section : tree) {
    if (section.first.compare(0, strPrefix.size(), strPrefix) != 0) continue;
    auto& mapKeys = description.mapBuiltinLimits[section.first.substr(strPrefix.size())];
    for (const auto& key : section.second) {
      const boost::optional<int> nValue = key.second.get_value_optional<int>();
      if (!nValue) {
        strError = strFile + ": [" + section.first + "] " + key.first + " is not a number: " + key.second.data();
        return false;
      }
      mapKeys[key.first] = *nValue;
    }
  }
  return true;
}

}  // namespace

std::string CommandDescriptionFile(const std::string& strCommand) {
  return PluginDir() + "/" + strCommand + kDescriptionSuffix;
}

bool ReadCommandDescription(const std::string& strCommand, CCommandDescription& description, std::string& strError) {
  const std::string strFile = CommandDescriptionFile(strCommand);
  std::string strText;
  const IniRead eRead = ReadTextFile(strFile, strText, strError);
  if (eRead != IniRead::kOk) {
    if (eRead == IniRead::kMissing) strError = strFile + ": cannot be read";
    return false;
  }
  Tree tree;
  try {
    std::istringstream in(strText);
    boost::property_tree::read_ini(in, tree);
    description = CCommandDescription();
    description.strCommand = strCommand;
    const Tree* pCommand = nullptr;
    if (!Section(tree, "command", pCommand, strFile, strError)) return false;
    description.strSummary = Value(*pCommand, "summary");
    description.strLimitsFile = Value(*pCommand, "limits_file");
    for (const std::string& strForm : SplitWords(Value(*pCommand, "forms"))) {
      CFormDescription form;
      if (!ReadForm(tree, strForm, form, strFile, strError)) return false;
      description.vecForms.push_back(form);
    }
    return ReadBuiltinLimits(tree, description, strFile, strError);
  } catch (const boost::property_tree::ini_parser_error& e) {
    strError = strFile + ":" + std::to_string(e.line()) + ": " + e.message();
    return false;
  }
}

bool isReadOnlyForm(const std::string& strCommand, const std::string& strFirstOption) {
  CCommandDescription description;
  std::string strIgnored;
  if (!ReadCommandDescription(strCommand, description, strIgnored)) return false;
  for (const CFormDescription& form : description.vecForms) {
    if (form.vecOptions.front().strName == strFirstOption) return form.bReadOnly;
  }
  return false;
}

std::vector<std::string> InstalledCommands() {
  std::vector<std::string> vecCommands;
  DIR* pDir = opendir(PluginDir().c_str());
  if (pDir == nullptr) return vecCommands;
  const std::string strPrefix = kPluginPrefix;
  const std::string strSuffix = kPluginSuffix;
  while (const dirent* pEntry = readdir(pDir)) {
    const std::string strName = pEntry->d_name;
    if (strName.size() > strPrefix.size() + strSuffix.size() && strName.compare(0, strPrefix.size(), strPrefix) == 0 &&
        strName.compare(strName.size() - strSuffix.size(), strSuffix.size(), strSuffix) == 0) {
      vecCommands.push_back(strName.substr(strPrefix.size(), strName.size() - strPrefix.size() - strSuffix.size()));
    }
  }
  closedir(pDir);
  std::sort(vecCommands.begin(), vecCommands.end());
  return vecCommands;
}

bool isInstalledCommand(const std::string& strCommand) {
  // lstat, not access: a plug-in link that leads nowhere is installed, and
  // loading it says what is wrong.
  struct stat info;
  return lstat((PluginDir() + "/" + kPluginPrefix + strCommand + kPluginSuffix).c_str(), &info) == 0;
}

std::string LimitsSection(const CFormDescription& form, const COptionDescription& option,
                          const std::string& strSelector) {
  if (!option.isNumber() || (!option.strNotFor.empty() && option.strNotFor == strSelector)) return "";
  if (!option.strSection.empty()) return option.strSection;
  const COptionDescription& selector = form.vecOptions.front();
  for (size_t i = 0; i < selector.vecSections.size(); ++i) {
    if (selector.vecValues[i] == strSelector) return selector.vecSections[i];
  }
  return "";
}

CLimitRange LimitsInForce(const CCommandDescription& description, const std::string& strSection,
                          const std::string& strStem) {
  const auto Read = [&](const std::string& strKey) {
    int nBuiltin = 0;
    const auto section = description.mapBuiltinLimits.find(strSection);
    if (section != description.mapBuiltinLimits.end()) {
      const auto key = section->second.find(strKey);
      if (key != section->second.end()) nBuiltin = key->second;
    }
    if (description.strLimitsFile.empty()) return nBuiltin;
    return GetPrivateProfileIntA(strSection.c_str(), strKey.c_str(), nBuiltin, description.strLimitsFile.c_str());
  };
  const int nMin = Read(strStem + "_MIN");
  const int nMax = Read(strStem + "_MAX");
  return CLimitRange{nMin, nMax};
}

}  // namespace devhost
