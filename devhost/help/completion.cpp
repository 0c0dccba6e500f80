// What may come next (see completion.h).
#include "devhost/help/completion.h"

#include <algorithm>
#include <cctype>
#include <set>

#include "devhost/compare/compare_command.h"
#include "devhost/help/command_description.h"
#include "devhost/help/mounted_file_systems.h"

namespace devhost {
namespace {

const char kHelpWord[] = "help";
const char kMountsSource[] = "mounts";

// ktl-cli's own words at the top level, after the installed commands.
struct COwnWord {
  const char* pszWord;
  const char* pszMeaning;
  bool bShellOnly;
};
const COwnWord kOwnWords[] = {
    {kHelpWord, "list the commands, or show the forms and options of one", false},
    {kCompareWord, "list the pending changes against the configuration in effect", false},
    {"--help", "ktl-cli's usage, environment and exit statuses", false},
    {"--version", "the versions of ktl-cli and of the command plug-ins", false},
    {"exit", "leave the shell", true},
    {"quit", "leave the shell", true},
};

std::string Lower(std::string strText) {
  std::transform(strText.begin(), strText.end(), strText.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return strText;
}

bool isOption(const std::string& strWord) { return !strWord.empty() && strWord[0] == '-'; }

// The text up to the first end of a sentence or clause, without it, and
// starting in lower case: one line in a list.
std::string FirstClause(const std::string& strText) {
  std::string strClause = strText.substr(0, std::min({strText.find(". "), strText.find("; "), strText.find(": ")}));
  if (!strClause.empty() && strClause.back() == '.') strClause.pop_back();
  if (!strClause.empty()) strClause[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(strClause[0])));
  return strClause;
}

// "on or off", "inf, wrn or err".
std::string Alternatives(const std::vector<std::string>& vecValues) {
  std::string strText;
  for (size_t i = 0; i < vecValues.size(); ++i) {
    strText += (i == 0 ? "" : i + 1 == vecValues.size() ? " or " : ", ") + vecValues[i];
  }
  return strText;
}

std::string MeaningOf(const COptionDescription& option) {
  return option.strMeaning.empty() ? Alternatives(option.vecValues) : FirstClause(option.strMeaning);
}

const CFormDescription* FormOf(const CCommandDescription& description, const std::string& strFirstOption) {
  for (const CFormDescription& form : description.vecForms) {
    if (form.vecOptions.front().strName == Lower(strFirstOption)) return &form;
  }
  return nullptr;
}

// A form's command line as far as it is typed: the options given, the
// option in hand and whether it has its value yet.
class CFormProgress {
 public:
  explicit CFormProgress(const CFormDescription& form)
      : m_form(form), m_pInHand(&form.vecOptions.front()), m_setGiven{m_pInHand->strName} {}

  // Takes the next word; false when the grammar has no place for it.
  bool Take(const std::string& strWord) {
    if (isOption(strWord)) {
      if (isValueDue()) return false;
      for (const COptionDescription* pAllowed : AllowedOptions()) {
        if (pAllowed->strName != strWord) continue;
        m_setGiven.insert(strWord);
        if (!pAllowed->bOptional) ++m_nRequiredGiven;
        m_pInHand = pAllowed;
        m_bHasValue = false;
        return true;
      }
      return false;
    }
    if (!m_pInHand->takesValue() || m_bHasValue) return false;
    const std::string strValue = Lower(strWord);
    const std::vector<std::string>& vecValues = m_pInHand->vecValues;
    if (!vecValues.empty() && std::find(vecValues.begin(), vecValues.end(), strValue) == vecValues.end()) return false;
    if (m_pInHand == &m_form.vecOptions.front()) m_strSelector = strValue;
    if (!m_pInHand->strEndsForm.empty() && strValue == m_pInHand->strEndsForm) m_bEnded = true;
    m_bHasValue = true;
    return true;
  }

  // The option whose value may be typed now, or null.
  const COptionDescription* ValueOption() const {
    return m_pInHand->takesValue() && !m_bHasValue ? m_pInHand : nullptr;
  }
  bool isValueDue() const { return ValueOption() != nullptr && !m_pInHand->bOptionalValue; }

  // The options that may be typed now: the next required one in the form's
  // order, else the optional ones not given yet that the selector allows.
  std::vector<const COptionDescription*> AllowedOptions() const {
    std::vector<const COptionDescription*> vecAllowed;
    if (isValueDue() || m_bEnded) return vecAllowed;
    size_t nRequired = 0;
    for (const COptionDescription& option : m_form.vecOptions) {
      if (option.bOptional) continue;
      if (nRequired++ == m_nRequiredGiven) return {&option};
    }
    for (const COptionDescription& option : m_form.vecOptions) {
      if (!option.bOptional || m_setGiven.count(option.strName) != 0) continue;
      if (option.isNumber() && LimitsSection(m_form, option, m_strSelector).empty()) continue;
      vecAllowed.push_back(&option);
    }
    return vecAllowed;
  }

  const std::string& Selector() const { return m_strSelector; }

 private:
  const CFormDescription& m_form;
  const COptionDescription* m_pInHand;
  bool m_bHasValue = false;
  bool m_bEnded = false;
  size_t m_nRequiredGiven = 1;  // the first option, which selected the form
  std::set<std::string> m_setGiven;
  std::string m_strSelector;
};

// The values that may stand for option's value.
std::vector<CNextWord> ValuesOf(const CCommandDescription& description, const CFormDescription& form,
                                const COptionDescription& option, const std::string& strSelector) {
  std::vector<CNextWord> vecNext;
  for (size_t i = 0; i < option.vecValues.size(); ++i) {
    vecNext.push_back({option.vecValues[i], i < option.vecValueMeanings.size() ? option.vecValueMeanings[i] : ""});
  }
  if (option.isNumber()) {
    const std::string strSection = LimitsSection(form, option, strSelector);
    if (strSection.empty()) return vecNext;
    const CLimitRange range = LimitsInForce(description, strSection, option.strNumberStem);
    vecNext.push_back(
        {"<" + std::to_string(range.nMin) + "-" + std::to_string(range.nMax) + ">", FirstClause(option.strMeaning)});
  }
  if (option.strCompleteFrom == kMountsSource) {
    for (const CMountedFileSystem& mounted : MountedFileSystems()) {
      vecNext.push_back({mounted.strDirectory, "a mounted file system (" + mounted.strType + ")"});
    }
  }
  return vecNext;
}

// The words after the command name.
std::vector<CNextWord> AfterCommand(const CCommandDescription& description, const std::vector<std::string>& vecWords) {
  std::vector<CNextWord> vecNext;
  if (vecWords.empty()) {
    for (const CFormDescription& form : description.vecForms) {
      vecNext.push_back({form.vecOptions.front().strName, FirstClause(form.strSummary)});
    }
    return vecNext;
  }
  const CFormDescription* pForm = FormOf(description, vecWords.front());
  if (pForm == nullptr) return vecNext;
  CFormProgress progress(*pForm);
  for (size_t i = 1; i < vecWords.size(); ++i) {
    if (!progress.Take(vecWords[i])) return vecNext;
  }
  if (const COptionDescription* pValueOption = progress.ValueOption()) {
    vecNext = ValuesOf(description, *pForm, *pValueOption, progress.Selector());
  }
  for (const COptionDescription* pOption : progress.AllowedOptions())
    vecNext.push_back({pOption->strName, MeaningOf(*pOption)});
  return vecNext;
}

std::vector<CNextWord> CommandsWithSummaries() {
  std::vector<CNextWord> vecNext;
  for (const std::string& strCommand : InstalledCommands()) {
    CCommandDescription description;
    std::string strError;
    vecNext.push_back(
        {strCommand, ReadCommandDescription(strCommand, description, strError) ? description.strSummary : ""});
  }
  return vecNext;
}

bool isInstalled(const std::string& strCommand) {
  const std::vector<std::string> vecCommands = InstalledCommands();
  return std::find(vecCommands.begin(), vecCommands.end(), strCommand) != vecCommands.end();
}

bool isMatch(const CNextWord& next, const std::string& strPrefix) {
  if (next.isRange()) return true;
  // Paths are told apart by case; words are typed in any case.
  if (next.strWord.front() == '/') return next.strWord.compare(0, strPrefix.size(), strPrefix) == 0;
  return Lower(next.strWord).compare(0, strPrefix.size(), Lower(strPrefix)) == 0;
}

}  // namespace

std::vector<CNextWord> NextWords(const std::vector<std::string>& vecBefore, const std::string& strPrefix,
                                 Place ePlace) {
  std::vector<CNextWord> vecNext;
  if (vecBefore.empty()) {
    vecNext = CommandsWithSummaries();
    for (const COwnWord& own : kOwnWords) {
      if (!own.bShellOnly || ePlace == Place::kShell) vecNext.push_back({own.pszWord, own.pszMeaning});
    }
  } else if (vecBefore.front() == kHelpWord) {
    if (vecBefore.size() == 1) vecNext = CommandsWithSummaries();
  } else if (vecBefore.front() == kCompareWord) {
    if (vecBefore.size() == 1) vecNext.push_back({kComparedCommand, "the logger configuration"});
  } else if (isInstalled(vecBefore.front())) {
    CCommandDescription description;
    std::string strError;
    if (ReadCommandDescription(vecBefore.front(), description, strError)) {
      vecNext = AfterCommand(description, std::vector<std::string>(vecBefore.begin() + 1, vecBefore.end()));
    }
  }
  std::vector<CNextWord> vecMatching;
  for (const CNextWord& next : vecNext) {
    if (!isMatch(next, strPrefix)) continue;
    const bool bSeen = std::any_of(vecMatching.begin(), vecMatching.end(),
                                   [&](const CNextWord& seen) { return seen.strWord == next.strWord; });
    if (!bSeen) vecMatching.push_back(next);
  }
  return vecMatching;
}

std::vector<std::string> CompletionCandidates(const std::vector<std::string>& vecBefore, const std::string& strPrefix,
                                              Place ePlace) {
  std::vector<std::string> vecWords;
  for (const CNextWord& next : NextWords(vecBefore, strPrefix, ePlace)) vecWords.push_back(next.strWord);
  return vecWords;
}

}  // namespace devhost
