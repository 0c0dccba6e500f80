// CTempleteContext: a template name and the data items to render it with.
#include <iostream>

#include "devhost/messages/template_cache.h"
#include "host/template_engine.h"

CTempleteContext::CTempleteContext() {}

CTempleteContext::~CTempleteContext() {}

// Loads <TemplateDir>/<name>.mustache; a template that cannot be read or
// parsed is reported on standard error.
bool CTempleteContext::Init(std::string strTemplateName) {
  m_strTemplateName = strTemplateName;
  std::string strError;
  if (!devhost::LoadTemplate(strTemplateName, strError)) {
    std::cerr << "ktl-cli: " << strError << std::endl;
    return false;
  }
  return true;
}

void CTempleteContext::PutData(std::string strKey, std::string strValue) { m_mapData[strKey] = strValue; }

void CTempleteContext::PutData(std::string strKey, std::vector<std::map<std::string, std::string> > vecRows) {
  m_mapData[strKey] = vecRows;
}
