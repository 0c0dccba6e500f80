#include "devhost/messages/message_catalogue.h"

#include "devhost/files/ini_store.h"
#include "devhost/files/paths.h"

namespace devhost {
namespace {

const char kSection[] = "Messages";
const char kDeclinedSection[] = "Declined";

const char* const kInformationalIds[] = {"MSG_CLI_HOLD_PARAM", "MSG_CLI_COMPLATE_SAVE", "MSG_CLI_COMPLATE_DISCARD"};

bool LookupText(const char* pszSection, const std::string& strMsgId, std::string& strText, std::string& strProblem) {
  strProblem.clear();
  const std::string strFile = CatalogueFile();
  IniTree catalogue;
  switch (ReadIniFile(strFile, catalogue, strProblem)) {
    case IniRead::kOk:
      break;
    case IniRead::kMissing:
      strProblem = "cannot open the message catalogue " + strFile + ": it does not exist";
      return false;
    case IniRead::kError:
      strProblem = "the message catalogue cannot be used: " + strProblem;
      return false;
  }
  const std::string* pText = FindIniValue(catalogue, pszSection, strMsgId);
  if (pText == nullptr || pText->empty()) return false;
  strText = *pText;
  return true;
}

}  // namespace

bool LookupMessageText(const std::string& strMsgId, std::string& strText, std::string& strProblem) {
  return LookupText(kSection, strMsgId, strText, strProblem);
}

bool LookupDeclinedText(const std::string& strMsgId, std::string& strText, std::string& strProblem) {
  return LookupText(kDeclinedSection, strMsgId, strText, strProblem);
}

bool isInformationalMessage(const std::string& strMsgId) {
  for (const char* pszId : kInformationalIds) {
    if (strMsgId == pszId) return true;
  }
  return false;
}

}  // namespace devhost
