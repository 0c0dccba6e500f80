// The parsed templates of this process, by name. CTempleteContext may hold
// nothing but its name and data, and it is copied by value into
// CTemplateEngine::Output, so the parsed template lives here: Init stores
// it, Output renders it without reading the file again.
#ifndef KTL_DEVHOST_TEMPLATE_CACHE_H
#define KTL_DEVHOST_TEMPLATE_CACHE_H

#include <kainjow/mustache.hpp>
#include <memory>
#include <string>

namespace devhost {

using ParsedTemplate = std::shared_ptr<kainjow::mustache::mustache>;

// Reads and parses <TemplateDir>/<name>.mustache and keeps it under the name,
// replacing what was kept before. False when the file cannot be read or
// parsed (nothing is kept then); strError names the file and says why.
bool LoadTemplate(const std::string& strName, std::string& strError);

// The template kept under the name; empty when none was loaded. Its values
// are inserted as they are, without HTML escaping.
ParsedTemplate FindTemplate(const std::string& strName);

// Drops the template kept under the name.
void ForgetTemplate(const std::string& strName);

}  // namespace devhost

#endif
