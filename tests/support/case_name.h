// Names a parameterised case after its "name" field, e.g. "garbage then y"
// -> "GarbageThenY_3", so that test lists and failures say which case it is.
#ifndef KTL_TESTS_SUPPORT_CASE_NAME_H
#define KTL_TESTS_SUPPORT_CASE_NAME_H

#include <gtest/gtest.h>

#include <cctype>
#include <string>

namespace ktl_test {

template <typename Case>
std::string CaseName(const ::testing::TestParamInfo<Case>& info) {
  std::string strName;
  bool bUpper = true;
  for (const char* p = info.param.name; *p; ++p) {
    if (std::isalnum(static_cast<unsigned char>(*p))) {
      strName += bUpper ? static_cast<char>(std::toupper(static_cast<unsigned char>(*p))) : *p;
      bUpper = false;
    } else {
      bUpper = true;
    }
  }
  return strName + "_" + std::to_string(info.index);
}

}  // namespace ktl_test

#endif
