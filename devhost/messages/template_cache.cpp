#include "devhost/messages/template_cache.h"

#include <map>

#include "devhost/files/ini_store.h"
#include "devhost/files/paths.h"
#include "devhost/messages/template_nesting.h"

namespace devhost {
namespace {

std::map<std::string, ParsedTemplate>& Cache() {
  static std::map<std::string, ParsedTemplate> mapTemplates;
  return mapTemplates;
}

}  // namespace

bool LoadTemplate(const std::string& strName, std::string& strError) {
  Cache().erase(strName);
  const std::string strFile = TemplateDir() + "/" + strName + ".mustache";
  std::string strText;
  const IniRead eRead = ReadTextFile(strFile, strText, strError);
  if (eRead != IniRead::kOk) {
    strError = "cannot read the template " + strFile + ": " +
               (eRead == IniRead::kMissing ? std::string("it does not exist") : strError);
    return false;
  }
  if (SectionDepth(strText) > kMaxSectionDepth) {
    strError = "refusing the template " + strFile + ": its sections nest more than " +
               std::to_string(kMaxSectionDepth) + " deep";
    return false;
  }
  auto pTemplate = std::make_shared<kainjow::mustache::mustache>(strText);
  if (!pTemplate->is_valid()) {
    strError = "the template " + strFile + " cannot be parsed: " + pTemplate->error_message();
    return false;
  }
  pTemplate->set_custom_escape([](const std::string& strValue) { return strValue; });
  Cache()[strName] = pTemplate;
  return true;
}

ParsedTemplate FindTemplate(const std::string& strName) {
  const auto it = Cache().find(strName);
  return it == Cache().end() ? ParsedTemplate() : it->second;
}

void ForgetTemplate(const std::string& strName) { Cache().erase(strName); }

}  // namespace devhost
