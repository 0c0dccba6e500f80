// The host's template engine: a context of named data items and the engine
// that renders the context's template with them.
//
// The context's constructor and destructor are the host's; its copy
// constructor is implicit, so copying a context (as Output's by-value
// argument does) happens in the caller, with Boost.Any.
#ifndef KTL_HOST_TEMPLATE_ENGINE_H
#define KTL_HOST_TEMPLATE_ENGINE_H

#include <map>
#include <string>
#include <vector>

#include <boost/any.hpp>

#include "host/host_api.h"

class KTL_HOST_API CTempleteContext {
 public:
  CTempleteContext();
  ~CTempleteContext();

  // Loads the named template. False = the context cannot be used.
  bool Init(std::string strTemplateName);
  // Sets a scalar item: m_mapData[strKey] holds a std::string.
  void PutData(std::string strKey, std::string strValue);
  // Sets a list item: m_mapData[strKey] holds the vector of rows.
  void PutData(std::string strKey, std::vector<std::map<std::string, std::string> > vecRows);

  std::string m_strTemplateName;
  std::map<std::string, boost::any> m_mapData;
};

class KTL_HOST_API CTemplateEngine {
 public:
  CTemplateEngine();
  ~CTemplateEngine();

  // Renders the context's template with its data into strOutput.
  // False = rendering failed.
  bool Output(CTempleteContext context, std::string& strOutput);
};

#endif
