// CTemplateEngine: renders a context's template with kainjow Mustache.
//
// A data item holding a std::string is a Mustache string; one holding a
// vector of rows is a list of objects, one per row. The output is terminal
// text: values are not HTML-escaped, but their control bytes are written as
// \xHH before any template sees them (templates insert values with triple
// braces), so that a value, a mount point say, cannot drive the terminal. A
// missing key renders nothing, as Mustache does.
#include <iostream>

#include "devhost/messages/template_cache.h"
#include "devhost/utilities/terminal_text.h"
#include "host/template_engine.h"

namespace {

using Rows = std::vector<std::map<std::string, std::string> >;

// False when an item holds a type that no template can show.
bool ToMustacheData(const std::map<std::string, boost::any>& mapData, kainjow::mustache::data& data,
                    std::string& strError) {
  for (const auto& item : mapData) {
    if (const std::string* pText = boost::any_cast<std::string>(&item.second)) {
      data.set(item.first, devhost::EscapeControlBytes(*pText));
    } else if (const Rows* pRows = boost::any_cast<Rows>(&item.second)) {
      kainjow::mustache::data list = kainjow::mustache::data::type::list;
      for (const auto& row : *pRows) {
        kainjow::mustache::data object;
        for (const auto& column : row) object.set(column.first, devhost::EscapeControlBytes(column.second));
        list.push_back(object);
      }
      data.set(item.first, list);
    } else {
      strError = "the data item " + item.first + " holds neither a text nor a list of rows";
      return false;
    }
  }
  return true;
}

}  // namespace

CTemplateEngine::CTemplateEngine() {}

CTemplateEngine::~CTemplateEngine() {}

bool CTemplateEngine::Output(CTempleteContext context, std::string& strOutput) {
  const devhost::ParsedTemplate pParsed = devhost::FindTemplate(context.m_strTemplateName);
  if (!pParsed) {
    std::cerr << "ktl-cli: the template " << context.m_strTemplateName << " was not loaded" << std::endl;
    return false;
  }
  kainjow::mustache::data data;
  std::string strError;
  if (!ToMustacheData(context.m_mapData, data, strError)) {
    std::cerr << "ktl-cli: cannot render the template " << context.m_strTemplateName << ": " << strError << std::endl;
    return false;
  }
  // Rendered in place: a copy of the parsed template would cost as much as
  // parsing it. Rendering records an error in the template, which then
  // renders nothing more, so a template that failed is dropped and read
  // again at its next use.
  std::string strText = pParsed->render(data);
  if (!pParsed->is_valid()) {
    std::cerr << "ktl-cli: cannot render the template " << context.m_strTemplateName << ": " << pParsed->error_message()
              << std::endl;
    devhost::ForgetTemplate(context.m_strTemplateName);
    return false;
  }
  strOutput = strText;
  return true;
}
