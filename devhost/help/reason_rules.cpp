// Reads the reason rules of a command (see reason_rules.h) with
// Boost.PropertyTree's INI parser.
#include "devhost/help/reason_rules.h"

#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#include <fstream>
#include <sstream>

#include "devhost/files/paths.h"

namespace devhost {
namespace {

using Tree = boost::property_tree::ptree;

const char kRulesSuffix[] = ".reasons.ini";
const char kTracedPrefix[] = "traced ";
const char kNotedPrefix[] = "noted ";

std::vector<std::string> Words(const std::string& strText) {
  std::vector<std::string> vecWords;
  std::istringstream in(strText);
  for (std::string strWord; in >> strWord;) vecWords.push_back(strWord);
  return vecWords;
}

bool StartsWith(const std::string& strText, const std::string& strPrefix) {
  return strText.compare(0, strPrefix.size(), strPrefix) == 0;
}

bool ReadRule(const std::string& strSection, const Tree& section, size_t nPrefix, CReasonRule& rule,
              const std::string& strFile, std::string& strError) {
  rule.strTrigger = strSection.substr(nPrefix);
  bool bHasSays = false;
  for (const auto& key : section) {
    const std::string& strValue = key.second.data();
    if (key.first == "fields") {
      rule.vecFields = Words(strValue);
    } else if (key.first == "says") {
      rule.strSays = strValue;
      bHasSays = true;
    } else if (key.first == "explain" && strValue == "grammar") {
      rule.bByGrammar = true;
    } else if (key.first == "option_at" && strValue.find_first_not_of("0123456789") == std::string::npos &&
               !strValue.empty() && strValue.size() < 4) {
      rule.nOptionAt = std::stoul(strValue);
    } else if (key.first == "fold") {
      rule.strFold = strValue;
    } else if (key.first == "leave_out") {
      rule.vecLeaveOut = Words(strValue);
    } else if (key.first == "form") {
      rule.strForm = strValue;
    } else {
      strError = strFile + ": [" + strSection + "] " + key.first + " = " + strValue + " is not understood";
      return false;
    }
  }
  if (bHasSays == rule.bByGrammar) {
    strError = strFile + ": [" + strSection + "] needs either \"says\" or \"explain = grammar\"";
    return false;
  }
  return true;
}

const CReasonRule* FindRule(const std::vector<CReasonRule>& vecRules, const std::string& strTrigger) {
  for (const CReasonRule& rule : vecRules) {
    if (rule.strTrigger == strTrigger) return &rule;
  }
  return nullptr;
}

}  // namespace

const CReasonRule* CReasonRules::TracedRule(const std::string& strFormat) const {
  return FindRule(vecTraced, strFormat);
}

const CReasonRule* CReasonRules::NotedRule(const std::string& strFact) const { return FindRule(vecNoted, strFact); }

std::string ReasonRulesFile(const std::string& strCommand) { return PluginDir() + "/" + strCommand + kRulesSuffix; }

bool ReadReasonRules(const std::string& strCommand, CReasonRules& rules, std::string& strError) {
  const std::string strFile = ReasonRulesFile(strCommand);
  std::ifstream in(strFile);
  if (!in) {
    strError = strFile + ": cannot be read";
    return false;
  }
  Tree tree;
  try {
    boost::property_tree::read_ini(in, tree);
  } catch (const boost::property_tree::ini_parser_error& e) {
    strError = strFile + ":" + std::to_string(e.line()) + ": " + e.message();
    return false;
  }
  rules = CReasonRules();
  for (const auto& section : tree) {
    const std::string& strName = section.first;
    if (strName == "reasons") {
      rules.strUsageAfter = section.second.get<std::string>("usage_after", "");
    } else if (strName == "grammar") {
      for (const auto& key : section.second) rules.mapGrammar[key.first] = key.second.data();
    } else if (StartsWith(strName, kTracedPrefix) || StartsWith(strName, kNotedPrefix)) {
      const bool bTraced = StartsWith(strName, kTracedPrefix);
      CReasonRule rule;
      const size_t nPrefix = bTraced ? sizeof(kTracedPrefix) - 1 : sizeof(kNotedPrefix) - 1;
      if (!ReadRule(strName, section.second, nPrefix, rule, strFile, strError)) return false;
      (bTraced ? rules.vecTraced : rules.vecNoted).push_back(rule);
    } else {
      strError = strFile + ": [" + strName + "] is not a section of reason rules";
      return false;
    }
  }
  return true;
}

}  // namespace devhost
