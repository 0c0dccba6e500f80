// The explanation of a refusal (see refusal_explanation.h).
#include "devhost/help/refusal_explanation.h"

#include <unistd.h>

#include <algorithm>
#include <kainjow/mustache.hpp>
#include <regex>
#include <set>

#include "devhost/help/command_description.h"
#include "devhost/help/command_grammar.h"
#include "devhost/help/help_text.h"
#include "devhost/help/reason_rules.h"
#include "devhost/utilities/refusal_reasons.h"
#include "devhost/utilities/terminal_text.h"

namespace devhost {
namespace {

using Data = kainjow::mustache::data;

const char kMinSuffix[] = "_MIN";
const char kMaxSuffix[] = "_MAX";

// What the words of the command were.
struct CWords {
  const CCommandDescription* pDescription = nullptr;
  std::vector<std::string> vecWords;
  std::vector<CWordPair> vecPairs;
  const CFormDescription* pForm = nullptr;
};

std::string Lower(std::string strText) {
  std::transform(strText.begin(), strText.end(), strText.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return strText;
}

bool EndsWith(const std::string& strText, const std::string& strSuffix) {
  return strText.size() > strSuffix.size() &&
         strText.compare(strText.size() - strSuffix.size(), strSuffix.size(), strSuffix) == 0;
}

// The values of strText where the printf format strFormat has %s, %d or %x;
// false when the text is not of that format.
bool MatchFormat(const std::string& strFormat, const std::string& strText, std::vector<std::string>& vecValues) {
  std::string strPattern;
  for (size_t i = 0; i < strFormat.size(); ++i) {
    const char c = strFormat[i];
    if (c == '%' && i + 1 < strFormat.size()) {
      const char cDirective = strFormat[++i];
      if (cDirective == 's') {
        strPattern += "([\\s\\S]*?)";
      } else if (cDirective == 'd') {
        strPattern += "(-?[0-9]+)";
      } else if (cDirective == 'x') {
        strPattern += "([0-9a-f]+)";
      } else if (cDirective == '%') {
        strPattern += "%";
      } else {
        return false;
      }
      continue;
    }
    if (std::string("\\^$.|?*+()[]{}").find(c) != std::string::npos) strPattern += '\\';
    strPattern += c;
  }
  std::smatch match;
  try {
    if (!std::regex_match(strText, match, std::regex(strPattern))) return false;
  } catch (const std::regex_error&) {
    return false;
  }
  vecValues.clear();
  for (size_t i = 1; i < match.size(); ++i) vecValues.push_back(match[i].str());
  return true;
}

// A template filled in, without HTML escaping; false when it is not valid
// Mustache.
bool Render(const std::string& strTemplate, const Data& data, std::string& strText) {
  kainjow::mustache::mustache renderer(strTemplate);
  if (!renderer.is_valid()) return false;
  renderer.set_custom_escape([](const std::string& strValue) { return strValue; });
  strText = renderer.render(data);
  return renderer.is_valid();
}

std::string FieldValue(const CReasonRule& rule, const std::vector<std::string>& vecValues, const std::string& strName) {
  for (size_t i = 0; i < rule.vecFields.size() && i < vecValues.size(); ++i) {
    if (rule.vecFields[i] == strName) return vecValues[i];
  }
  return "";
}

bool HasField(const CReasonRule& rule, const std::string& strName) {
  return std::find(rule.vecFields.begin(), rule.vecFields.end(), strName) != rule.vecFields.end();
}

// The range in force of strOption, when the last two limits read before the
// diagnostic were its STEM_MIN and STEM_MAX.
void AddRange(const CTracedDiagnostic& diagnostic, const std::string& strOption, const CWords& words, Data& data) {
  if (diagnostic.vecLastReads.size() != 2) return;
  const CLimitRead& min = diagnostic.vecLastReads[0];
  const CLimitRead& max = diagnostic.vecLastReads[1];
  if (!EndsWith(min.strKey, kMinSuffix) || !EndsWith(max.strKey, kMaxSuffix)) return;
  const std::string strStem = min.strKey.substr(0, min.strKey.size() - (sizeof(kMinSuffix) - 1));
  if (max.strKey != strStem + kMaxSuffix || min.strSection != max.strSection || min.strFile != max.strFile) return;
  if (Lower(strOption) != "-" + Lower(strStem)) return;
  data.set("min", std::to_string(min.nValue));
  data.set("max", std::to_string(max.nValue));
  data.set("section", min.strSection);
  data.set("min_key", min.strKey);
  data.set("max_key", max.strKey);
  data.set("file", min.strFile);
  // The selector's value that chose the section: "for cpu".
  if (words.pForm == nullptr) return;
  const COptionDescription& selector = words.pForm->vecOptions.front();
  for (size_t i = 0; i < selector.vecSections.size(); ++i) {
    if (selector.vecSections[i] == min.strSection) data.set("for", selector.vecValues[i]);
  }
}

Data FieldsOf(const CReasonRule& rule, const std::vector<std::string>& vecValues, const CWords& words,
              const CTracedDiagnostic* pDiagnostic) {
  Data data;
  for (size_t i = 0; i < rule.vecFields.size() && i < vecValues.size(); ++i) data.set(rule.vecFields[i], vecValues[i]);
  if (!words.vecPairs.empty()) data.set("first", words.vecPairs.front().Typed());
  std::string strOption = FieldValue(rule, vecValues, "option");
  if (rule.nOptionAt > 0 && rule.nOptionAt <= words.vecPairs.size()) {
    strOption = words.vecPairs[rule.nOptionAt - 1].strOption;
  } else if (!HasField(rule, "option") && HasField(rule, "value")) {
    const std::string strValue = FieldValue(rule, vecValues, "value");
    for (const CWordPair& pair : words.vecPairs) {
      if (pair.strValue == strValue) {
        strOption = pair.strOption;
        break;
      }
    }
  }
  if (!strOption.empty()) data.set("option", strOption);
  if (HasField(rule, "value")) {
    const std::string strValue = FieldValue(rule, vecValues, "value");
    data.set("no_value", strValue.empty());
    data.set("not_number", !strValue.empty() && strValue.find_first_not_of("0123456789") != std::string::npos);
  }
  if (HasField(rule, "set")) {
    std::vector<std::string> vecSet;
    std::string strSet = FieldValue(rule, vecValues, "set");
    for (size_t nStart = 0; nStart <= strSet.size();) {
      const size_t nBar = std::min(strSet.find('|', nStart), strSet.size());
      vecSet.push_back(strSet.substr(nStart, nBar - nStart));
      nStart = nBar + 1;
    }
    data.set("expected", Alternatives(vecSet));
  }
  if (pDiagnostic != nullptr) AddRange(*pDiagnostic, strOption, words, data);
  return data;
}

bool isLeftOut(const CReasonRule& rule, const std::string& strValue) {
  for (const std::string& strOut : rule.vecLeaveOut) {
    if (strValue == strOut || strValue.compare(0, strOut.size() + 1, strOut + "/") == 0) return true;
  }
  return false;
}

// The fields of every diagnostic of rule's format whose fold field is
// strKey: the other fields as lists, and whether the key was among them.
Data FoldedFields(const CReasonRule& rule, const std::string& strKey, const CWords& words) {
  std::map<std::string, std::set<std::string>> mapLists;
  bool bFound = false;
  for (const CTracedDiagnostic& diagnostic : CollectedRecord().vecDiagnostics) {
    std::vector<std::string> vecValues;
    if (diagnostic.strFormat != rule.strTrigger || !MatchFormat(diagnostic.strFormat, diagnostic.strText, vecValues) ||
        FieldValue(rule, vecValues, rule.strFold) != strKey)
      continue;
    for (size_t i = 0; i < rule.vecFields.size() && i < vecValues.size(); ++i) {
      if (rule.vecFields[i] == rule.strFold) continue;
      if (vecValues[i] == strKey) bFound = true;
      if (!isLeftOut(rule, vecValues[i])) mapLists[rule.vecFields[i]].insert(vecValues[i]);
    }
  }
  Data data;
  data.set(rule.strFold, strKey);
  if (!words.vecPairs.empty()) data.set("first", words.vecPairs.front().Typed());
  for (const auto& list : mapLists) {
    std::string strList;
    for (const std::string& strValue : list.second) strList += (strList.empty() ? "" : ", ") + strValue;
    data.set(list.first, strList);
  }
  data.set("found", bFound);
  return data;
}

bool isFormOf(const CReasonRule& rule, const CWords& words) {
  return rule.strForm.empty() || (words.pForm != nullptr && words.pForm->strName == rule.strForm);
}

// The grammar check's finding in the rules' words; empty when it found
// nothing or the rules have no words for it.
std::string GrammarReason(const CReasonRules& rules, const CWords& words) {
  if (words.pDescription == nullptr) return "";
  const CGrammarFinding finding = CheckGrammar(*words.pDescription, words.vecWords);
  const auto it = rules.mapGrammar.find(finding.strKind);
  if (finding.strKind.empty() || it == rules.mapGrammar.end()) return "";
  Data data;
  data.set("option", finding.strOption);
  data.set("word", finding.strWord);
  data.set("expected", finding.strExpected);
  data.set("previous", finding.strPrevious);
  std::string strText;
  return Render(it->second, data, strText) ? strText : "";
}

class CReasonLines {
 public:
  void Add(const std::string& strLine) {
    if (strLine.empty() || std::find(m_vecLines.begin(), m_vecLines.end(), strLine) != m_vecLines.end()) return;
    m_vecLines.push_back(strLine);
  }
  const std::vector<std::string>& Lines() const { return m_vecLines; }

 private:
  std::vector<std::string> m_vecLines;
};

void ExplainDiagnostics(const CReasonRules* pRules, const CWords& words, CReasonLines& lines) {
  std::set<std::string> setFolded;
  for (const CTracedDiagnostic& diagnostic : CollectedRecord().vecDiagnostics) {
    const CReasonRule* pRule = pRules ? pRules->TracedRule(diagnostic.strFormat) : nullptr;
    std::vector<std::string> vecValues;
    if (pRule == nullptr || !isFormOf(*pRule, words) ||
        !MatchFormat(diagnostic.strFormat, diagnostic.strText, vecValues)) {
      lines.Add(diagnostic.strText);
      continue;
    }
    if (pRule->bByGrammar) {
      const std::string strReason = GrammarReason(*pRules, words);
      lines.Add(strReason.empty() ? diagnostic.strText : strReason);
      continue;
    }
    Data data;
    if (!pRule->strFold.empty()) {
      const std::string strKey = FieldValue(*pRule, vecValues, pRule->strFold);
      if (!setFolded.insert(pRule->strTrigger + '\n' + strKey).second) continue;
      data = FoldedFields(*pRule, strKey, words);
    } else {
      data = FieldsOf(*pRule, vecValues, words, &diagnostic);
    }
    std::string strReason;
    lines.Add(Render(pRule->strSays, data, strReason) ? strReason : diagnostic.strText);
  }
}

void ExplainHostFacts(const CReasonRules& rules, const CWords& words, CReasonLines& lines) {
  for (const std::string& strFact : CollectedRecord().vecHostFacts) {
    const CReasonRule* pRule = rules.NotedRule(strFact);
    if (pRule == nullptr || !isFormOf(*pRule, words)) continue;
    std::string strReason;
    if (Render(pRule->strSays, FieldsOf(*pRule, {}, words, nullptr), strReason)) lines.Add(strReason);
  }
}

}  // namespace

void ExplainRefusal(const std::string& strCommand, const std::vector<std::string>& vecWords, std::ostream& err) {
  const CCommandRecord& record = CollectedRecord();
  CCommandDescription description;
  std::string strError;
  CWords words;
  words.vecWords = vecWords;
  std::string strStray;
  GroupWords(vecWords, words.vecPairs, strStray);
  if (ReadCommandDescription(strCommand, description, strError)) {
    words.pDescription = &description;
    words.pForm = SelectedForm(description, words.vecPairs);
  }
  CReasonRules rules;
  const bool bHasRules = ReadReasonRules(strCommand, rules, strError);
  // A command without rules explains nothing beyond its diagnostics; rules
  // that are there but wrong are worth saying.
  if (!bHasRules && access(ReasonRulesFile(strCommand).c_str(), F_OK) == 0) err << "ktl-cli: " << strError << "\n";

  CReasonLines lines;
  ExplainDiagnostics(bHasRules ? &rules : nullptr, words, lines);
  const bool bUsageError = bHasRules && !rules.strUsageAfter.empty() &&
                           std::find(record.vecShownErrors.begin(), record.vecShownErrors.end(), rules.strUsageAfter) !=
                               record.vecShownErrors.end();
  if (bHasRules) {
    ExplainHostFacts(rules, words, lines);
    if (lines.Lines().empty() && bUsageError) lines.Add(GrammarReason(rules, words));
  }
  for (const std::string& strLine : lines.Lines()) err << "reason: " << EscapeControlBytes(strLine) << "\n";
  if (bUsageError && words.pDescription != nullptr) ShowUsage(description, vecWords, err);
  err.flush();
}

}  // namespace devhost
