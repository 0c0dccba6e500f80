// How deep the sections of a Mustache template nest, found before the
// template is parsed: the parser and the renderer recurse once per level,
// so a template nested thousands of sections deep would take memory
// without bound and then overflow the stack.
#ifndef KTL_DEVHOST_TEMPLATE_NESTING_H
#define KTL_DEVHOST_TEMPLATE_NESTING_H

#include <cstddef>
#include <string>

namespace devhost {

// The deepest nesting that a template may have: a report needs a few levels.
const std::size_t kMaxSectionDepth = 100;

// The deepest nesting of sections ({{#name}}, {{^name}}) in strText, with
// the delimiters that {{=<% %>=}} sets followed. It stops counting above
// kMaxSectionDepth.
std::size_t SectionDepth(const std::string& strText);

}  // namespace devhost

#endif
