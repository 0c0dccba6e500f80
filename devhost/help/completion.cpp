// Completion candidates (see completion.h).
#include "devhost/help/completion.h"

#include <algorithm>
#include <cctype>
#include <set>

#include "devhost/help/command_description.h"

namespace devhost {
namespace {

const char kHelpWord[] = "help";

std::string Lower(std::string strText) {
  std::transform(strText.begin(), strText.end(), strText.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return strText;
}

bool isOption(const std::string& strWord) { return !strWord.empty() && strWord[0] == '-'; }

const CFormDescription* FormOf(const CCommandDescription& description, const std::string& strFirstOption) {
  for (const CFormDescription& form : description.vecForms) {
    if (form.vecOptions.front().strName == Lower(strFirstOption)) return &form;
  }
  return nullptr;
}

const COptionDescription* OptionOf(const CFormDescription& form, const std::string& strName) {
  for (const COptionDescription& option : form.vecOptions) {
    if (option.strName == Lower(strName)) return &option;
  }
  return nullptr;
}

// The words after the command name.
std::vector<std::string> ForCommandWords(const CCommandDescription& description,
                                         const std::vector<std::string>& vecWords) {
  std::vector<std::string> vecCandidates;
  if (vecWords.empty()) {
    for (const CFormDescription& form : description.vecForms) vecCandidates.push_back(form.vecOptions.front().strName);
    return vecCandidates;
  }
  const CFormDescription* pForm = FormOf(description, vecWords.front());
  if (pForm == nullptr) return vecCandidates;
  // After an option that takes a value comes its value: offer the set, if
  // any; free text and numbers have nothing to offer.
  const COptionDescription* pLast = isOption(vecWords.back()) ? OptionOf(*pForm, vecWords.back()) : nullptr;
  if (pLast != nullptr && pLast->takesValue()) return pLast->vecValues;
  std::set<std::string> setGiven;
  for (const std::string& strWord : vecWords) setGiven.insert(Lower(strWord));
  for (const COptionDescription& option : pForm->vecOptions) {
    if (setGiven.count(option.strName) == 0) vecCandidates.push_back(option.strName);
  }
  return vecCandidates;
}

}  // namespace

std::vector<std::string> CompletionCandidates(const std::vector<std::string>& vecBefore, const std::string& strPrefix) {
  std::vector<std::string> vecCandidates;
  const std::vector<std::string> vecCommands = InstalledCommands();
  if (vecBefore.empty()) {
    vecCandidates = vecCommands;
    vecCandidates.push_back(kHelpWord);
  } else if (vecBefore.front() == kHelpWord) {
    if (vecBefore.size() == 1) vecCandidates = vecCommands;
  } else if (std::find(vecCommands.begin(), vecCommands.end(), vecBefore.front()) != vecCommands.end()) {
    CCommandDescription description;
    std::string strError;
    if (ReadCommandDescription(vecBefore.front(), description, strError)) {
      vecCandidates = ForCommandWords(description, std::vector<std::string>(vecBefore.begin() + 1, vecBefore.end()));
    }
  }
  std::vector<std::string> vecMatching;
  for (const std::string& strCandidate : vecCandidates) {
    if (strCandidate.compare(0, strPrefix.size(), strPrefix) == 0) vecMatching.push_back(strCandidate);
  }
  std::sort(vecMatching.begin(), vecMatching.end());
  vecMatching.erase(std::unique(vecMatching.begin(), vecMatching.end()), vecMatching.end());
  return vecMatching;
}

}  // namespace devhost
