// The host's debug trace.
#ifndef KTL_HOST_TRACE_UTILITY_H
#define KTL_HOST_TRACE_UTILITY_H

#include "host/host_api.h"

class KTL_HOST_API CTraceUtility {
 public:
  enum TRACE_DBG_LEVEL {
    TRACE_DBG_NOTE = 1,       // progress and informational notes
    TRACE_DBG_ENV = 2,        // failures of the environment
    TRACE_DBG_FUNC = 4,       // entry and exit of operations
    TRACE_DBG_EXCEPTION = 8,  // caught exceptions
    TRACE_DBG_PARAM = 16,     // rejected parameters
  };

  // Writes one trace line for module pszModule when eLevel is enabled; the
  // line is pszFormat with the values that follow, printf-style.
  static void WriteDebug(const char* pszModule, TRACE_DBG_LEVEL eLevel, const char* pszFormat, ...)
      __attribute__((format(printf, 3, 4)));
};

#endif
