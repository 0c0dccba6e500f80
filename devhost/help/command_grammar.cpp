// Checks a command line against its description (see command_grammar.h).
#include "devhost/help/command_grammar.h"

#include <algorithm>
#include <cctype>

namespace devhost {
namespace {

std::string Lower(std::string strText) {
  std::transform(strText.begin(), strText.end(), strText.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return strText;
}

bool isOption(const std::string& strWord) { return !strWord.empty() && strWord[0] == '-'; }

const COptionDescription* FindOption(const CFormDescription& form, const std::string& strName) {
  for (const COptionDescription& option : form.vecOptions) {
    if (Lower(option.strName) == Lower(strName)) return &option;
  }
  return nullptr;
}

bool isOptionOfCommand(const CCommandDescription& description, const std::string& strName) {
  for (const CFormDescription& form : description.vecForms) {
    if (FindOption(form, strName) != nullptr) return true;
  }
  return false;
}

// The option without the brackets of an optional one.
std::string BareSynopsis(const COptionDescription& option) {
  COptionDescription required = option;
  required.bOptional = false;
  return OptionSynopsis(required);
}

// The values an option takes, as an operator reads them.
std::string ExpectedValues(const COptionDescription& option) {
  if (!option.vecValues.empty()) return Alternatives(option.vecValues);
  if (option.isNumber()) return "a number";
  return option.strPlaceholder;
}

CGrammarFinding Finding(const std::string& strKind, const std::string& strOption, const std::string& strExpected,
                        const std::string& strPrevious) {
  CGrammarFinding finding;
  finding.strKind = strKind;
  finding.strOption = strOption;
  finding.strExpected = strExpected;
  finding.strPrevious = strPrevious;
  return finding;
}

CGrammarFinding MissingValue(const CWordPair& pair, const COptionDescription& option) {
  if (pair.strValue.empty() && option.takesValue() && !option.bOptionalValue)
    return Finding("no_value", pair.strOption, ExpectedValues(option), "");
  return CGrammarFinding();
}

CGrammarFinding CheckForm(const CCommandDescription& description, const CFormDescription& form,
                          const std::vector<CWordPair>& vecPairs) {
  CGrammarFinding finding = MissingValue(vecPairs[0], form.vecOptions[0]);
  if (!finding.strKind.empty()) return finding;
  size_t nPair = 1;
  std::vector<std::string> vecOptional;
  for (size_t nOption = 1; nOption < form.vecOptions.size(); ++nOption) {
    const COptionDescription& option = form.vecOptions[nOption];
    if (option.bOptional) {
      vecOptional.push_back(option.strName);
      continue;
    }
    const std::string strPrevious = vecPairs[nPair - 1].Typed();
    if (nPair >= vecPairs.size()) return Finding("missing", option.strName, BareSynopsis(option), strPrevious);
    const CWordPair& pair = vecPairs[nPair];
    if (pair.strOption != option.strName) {
      const bool bKnown = isOptionOfCommand(description, pair.strOption);
      return Finding(bKnown ? "misplaced" : "unknown", pair.strOption, BareSynopsis(option), strPrevious);
    }
    finding = MissingValue(pair, option);
    if (!finding.strKind.empty()) return finding;
    ++nPair;
  }
  for (; nPair < vecPairs.size(); ++nPair) {
    const CWordPair& pair = vecPairs[nPair];
    const std::string strPrevious = vecPairs[nPair - 1].Typed();
    if (vecOptional.empty()) return Finding("extra", pair.strOption, "", strPrevious);
    const COptionDescription* pOption = FindOption(form, pair.strOption);
    if (pOption == nullptr || !pOption->bOptional) {
      const bool bKnown = isOptionOfCommand(description, pair.strOption);
      return Finding(bKnown ? "misplaced" : "unknown", pair.strOption, Alternatives(vecOptional), strPrevious);
    }
    finding = MissingValue(pair, *pOption);
    if (!finding.strKind.empty()) return finding;
  }
  return CGrammarFinding();
}

}  // namespace

bool GroupWords(const std::vector<std::string>& vecWords, std::vector<CWordPair>& vecPairs, std::string& strStray) {
  vecPairs.clear();
  bool bValueOpen = false;
  for (const std::string& strWord : vecWords) {
    if (isOption(strWord)) {
      vecPairs.push_back(CWordPair{strWord, ""});
      bValueOpen = true;
    } else if (bValueOpen) {
      vecPairs.back().strValue = strWord;
      bValueOpen = false;
    } else {
      strStray = strWord;
      return false;
    }
  }
  return true;
}

const CFormDescription* SelectedForm(const CCommandDescription& description, const std::vector<CWordPair>& vecPairs) {
  if (vecPairs.empty()) return nullptr;
  for (const CFormDescription& form : description.vecForms) {
    if (Lower(form.vecOptions.front().strName) == Lower(vecPairs.front().strOption)) return &form;
  }
  return nullptr;
}

CGrammarFinding CheckGrammar(const CCommandDescription& description, const std::vector<std::string>& vecWords) {
  std::vector<CWordPair> vecPairs;
  std::string strStray;
  if (!GroupWords(vecWords, vecPairs, strStray)) {
    CGrammarFinding finding;
    finding.strKind = "stray";
    finding.strWord = strStray;
    return finding;
  }
  std::vector<std::string> vecFirst;
  for (const CFormDescription& form : description.vecForms) vecFirst.push_back(form.vecOptions.front().strName);
  if (vecPairs.empty()) return Finding("no_option", "", Alternatives(vecFirst), "");
  const CFormDescription* pForm = SelectedForm(description, vecPairs);
  if (pForm == nullptr) {
    const bool bKnown = isOptionOfCommand(description, vecPairs[0].strOption);
    return Finding(bKnown ? "misplaced_first" : "unknown_first", vecPairs[0].strOption, Alternatives(vecFirst), "");
  }
  return CheckForm(description, *pForm, vecPairs);
}

std::string Alternatives(const std::vector<std::string>& vecWords) {
  std::string strText;
  for (size_t i = 0; i < vecWords.size(); ++i) {
    if (i > 0) strText += i + 1 == vecWords.size() ? " or " : ", ";
    strText += vecWords[i];
  }
  return strText;
}

std::string OptionSynopsis(const COptionDescription& option) {
  std::string strText = option.strName;
  if (!option.vecValues.empty()) {
    std::string strValues;
    for (const std::string& strValue : option.vecValues) strValues += (strValues.empty() ? "" : "|") + strValue;
    strText += option.bOptionalValue ? " [" + strValues + "]" : " " + strValues;
  } else if (!option.strPlaceholder.empty()) {
    strText += " " + option.strPlaceholder;
  }
  return option.bOptional ? "[" + strText + "]" : strText;
}

}  // namespace devhost
