// The echo of the trace on standard error (see trace_echo.h).
#include "devhost/utilities/trace_echo.h"

#include <iostream>

#include "devhost/utilities/terminal_text.h"

namespace {
bool& Echoed() {
  static bool bEchoed = false;
  return bEchoed;
}
}  // namespace

namespace devhost {

void EchoTraceToStandardError(bool bEcho) { Echoed() = bEcho; }

bool isTraceEchoed() { return Echoed(); }

void EchoTraceLine(const char* pszModule, unsigned nLevel, const std::string& strText) {
  std::cerr << "trace: " << (pszModule ? pszModule : "-") << " " << nLevel << " " << EscapeControlBytes(strText)
            << std::endl;
}

}  // namespace devhost
