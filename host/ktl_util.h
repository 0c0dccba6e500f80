// The host's system helpers.
#ifndef KTL_HOST_KTL_UTIL_H
#define KTL_HOST_KTL_UTIL_H

#include <string>

#include "host/host_api.h"

class KTL_HOST_API CKtlUtil {
 public:
  // Runs the shell command built printf-style from pszFormat, writes its
  // standard output to a file and returns that file's path. The caller reads
  // the file and then removes it.
  static std::string ExecSystemCmd(const char* pszFormat, ...);
};

#endif
