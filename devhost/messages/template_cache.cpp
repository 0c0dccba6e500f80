#include "devhost/messages/template_cache.h"

#include <fstream>
#include <map>
#include <iterator>

#include "devhost/files/paths.h"

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
  std::ifstream in(strFile, std::ios::binary);
  const std::string strText((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (!in.is_open() || in.bad()) {
    strError = "cannot read the template " + strFile;
    return false;
  }
  auto pTemplate = std::make_shared<kainjow::mustache::mustache>(strText);
  if (!pTemplate->is_valid()) {
    strError = "the template " + strFile + " cannot be parsed: " + pTemplate->error_message();
    return false;
  }
  Cache()[strName] = pTemplate;
  return true;
}

ParsedTemplate FindTemplate(const std::string& strName) {
  const auto it = Cache().find(strName);
  return it == Cache().end() ? ParsedTemplate() : it->second;
}

}  // namespace devhost
