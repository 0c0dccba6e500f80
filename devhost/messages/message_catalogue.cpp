#include "devhost/messages/message_catalogue.h"

#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#include <fstream>

#include "devhost/files/paths.h"

namespace devhost {
namespace {

const char kSection[] = "Messages";

const char* const kInformationalIds[] = {"MSG_CLI_HOLD_PARAM", "MSG_CLI_COMPLATE_SAVE", "MSG_CLI_COMPLATE_DISCARD"};

}  // namespace

bool LookupMessageText(const std::string& strMsgId, std::string& strText, std::string& strProblem) {
  strProblem.clear();
  const std::string strFile = CatalogueFile();
  std::ifstream in(strFile);
  if (!in) {
    strProblem = "cannot open the message catalogue " + strFile;
    return false;
  }
  boost::property_tree::ptree catalogue;
  try {
    boost::property_tree::read_ini(in, catalogue);
  } catch (const boost::property_tree::ini_parser_error& e) {
    strProblem = "the message catalogue " + strFile + " is malformed at line " + std::to_string(e.line()) + ": " +
                 e.message();
    return false;
  }
  // find() takes the name as one key: identifiers are never split at ".".
  const auto section = catalogue.find(kSection);
  if (section == catalogue.not_found()) return false;
  const auto entry = section->second.find(strMsgId);
  if (entry == section->second.not_found() || entry->second.data().empty()) return false;
  strText = entry->second.data();
  return true;
}

bool isInformationalMessage(const std::string& strMsgId) {
  for (const char* pszId : kInformationalIds) {
    if (strMsgId == pszId) return true;
  }
  return false;
}

}  // namespace devhost
