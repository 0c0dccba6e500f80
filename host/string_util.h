// The host's string helpers.
#ifndef KTL_HOST_STRING_UTIL_H
#define KTL_HOST_STRING_UTIL_H

#include <list>
#include <string>

#include "host/host_api.h"

class KTL_HOST_API CStringUtil {
 public:
  // The text with its letters in lower case.
  static std::string StringToLowerCase(std::string strText);
  // The pieces of strText between occurrences of strSeparator, in order.
  static std::list<std::string> Split(std::string& strText, const std::string& strSeparator);
};

#endif
