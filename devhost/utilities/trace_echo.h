// `ktl-cli -v`: every trace line, whatever the trace mask, also goes to
// standard error as "trace: MODULE LEVEL TEXT", so that the raw diagnostics
// behind a refusal can be read without editing the environment.
#ifndef KTL_DEVHOST_TRACE_ECHO_H
#define KTL_DEVHOST_TRACE_ECHO_H

#include <string>

namespace devhost {

void EchoTraceToStandardError(bool bEcho);
bool isTraceEchoed();

// Writes one echoed line; control bytes are escaped (\x1b).
void EchoTraceLine(const char* pszModule, unsigned nLevel, const std::string& strText);

}  // namespace devhost

#endif
