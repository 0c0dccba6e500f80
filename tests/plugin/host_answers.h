// The host's answers of a case ("key = value" lines, listed in
// tests/plugin/cases/README.md), put into the scripted host's script.
#ifndef KTL_TESTS_PLUGIN_HOST_ANSWERS_H
#define KTL_TESTS_PLUGIN_HOST_ANSWERS_H

#include <string>

namespace ktl_test {

// Sets what strKey names in scripted::script(). Returns "" or what is wrong.
std::string ApplyHostAnswer(const std::string& strKey, const std::string& strValue);

}  // namespace ktl_test

#endif
