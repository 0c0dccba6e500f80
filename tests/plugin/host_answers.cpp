#include "tests/plugin/host_answers.h"

#include <cstdlib>
#include <map>
#include <sstream>

#include "tests/support/record_text.h"
#include "tests/support/scripted_host.h"

namespace ktl_test {

namespace {

using scripted::Script;

const std::map<std::string, int Script::*> kNumbers = {
    {"CCommand::CheckParam", &Script::nCheckParamResult}, {"CCommand::Exec", &Script::nExecResult},
    {"GetPPID", &Script::nPpid},                          {"show", &Script::nShowDefault},
    {"GetParameter", &Script::nGetParameterResult},       {"SetParameter", &Script::nSetParameterResult}};
const std::map<std::string, bool Script::*> kYesNo = {
    {"Inquiry", &Script::bInquiryAnswer},    {"CheckProcessId", &Script::bCheckProcessId},
    {"ReadConfFile", &Script::bReadConfFileResult}, {"Discard", &Script::bDiscardResult},
    {"Init", &Script::bInitResult},          {"Output", &Script::bOutputResult},
    {"mount.unreadable", &Script::bMountFileUnreadable}};
const std::map<std::string, std::string Script::*> kTexts = {
    {"template", &Script::strTemplateName}, {"rendered", &Script::strRendered},
    {"throw", &Script::strThrowIn},         {"throw.trace", &Script::strThrowOnTrace}};

bool ParseNumber(const std::string& strText, int& nValue) {
  char* pEnd = nullptr;
  nValue = static_cast<int>(std::strtol(strText.c_str(), &pEnd, 0));
  return !strText.empty() && *pEnd == '\0';
}

std::string AfterPrefix(const std::string& strKey, const std::string& strPrefix) {
  return strKey.compare(0, strPrefix.size(), strPrefix) == 0 ? strKey.substr(strPrefix.size()) : "";
}

}  // namespace

std::string ApplyHostAnswer(const std::string& strKey, const std::string& strValue) {
  Script& s = scripted::script();
  const std::string strWrong = "bad value for " + strKey + ": \"" + strValue + "\"";
  std::istringstream words(strValue);
  std::string strWord;
  if (kNumbers.count(strKey)) return ParseNumber(strValue, s.*kNumbers.at(strKey)) ? "" : strWrong;
  if (kTexts.count(strKey)) {
    s.*kTexts.at(strKey) = strValue;
    return "";
  }
  if (kYesNo.count(strKey)) {
    s.*kYesNo.at(strKey) = strValue == "yes";
    return strValue == "yes" || strValue == "no" ? "" : strWrong;
  }
  if (strKey == "throw.int") {
    s.strThrowIn = strValue;
    s.bThrowNonStd = true;
  } else if (strKey == "mount") {
    s.strMountListing += strValue + "\n";
  } else if (strKey == "initWrite") {
    int nAnswer;
    while (words >> strWord)
      if (ParseNumber(strWord, nAnswer)) s.dqInitWrite.push_back(nAnswer); else return strWrong;
  } else if (strKey == "WriteString.fails") {
    while (words >> strWord) s.setFailWrite.insert(strWord);
  } else if (!AfterPrefix(strKey, "effective.").empty()) {
    return SetRecordPart(s.effective, AfterPrefix(strKey, "effective."), strValue);
  } else if (!AfterPrefix(strKey, "pending.").empty()) {
    return SetRecordPart(s.pending, AfterPrefix(strKey, "pending."), strValue);
  } else if (!AfterPrefix(strKey, "show.").empty()) {
    return ParseNumber(strValue, s.mapShowResult[AfterPrefix(strKey, "show.")]) ? "" : strWrong;
  } else if (!AfterPrefix(strKey, "limit.").empty()) {
    return ParseNumber(strValue, s.mapProfile[AfterPrefix(strKey, "limit.")]) ? "" : strWrong;
  } else if (!AfterPrefix(strKey, "GetString.").empty()) {
    s.mapStrings[AfterPrefix(strKey, "GetString.")] = strValue;
  } else {
    return "unknown key \"" + strKey + "\"";
  }
  return "";
}

}  // namespace ktl_test
