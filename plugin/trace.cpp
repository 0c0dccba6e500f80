#include "plugin/trace.h"

namespace logger_trace {
namespace {

const char kModule[] = "cli";

// The composed line is the whole format: it holds no placeholder.
void WriteLine(const std::string& strLine) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  CTraceUtility::WriteDebug(kModule, CTraceUtility::TRACE_DBG_FUNC, strLine.c_str());
#pragma GCC diagnostic pop
}

}  // namespace

std::string Literal(const std::string& strText) {
  std::string strEscaped;
  strEscaped.reserve(strText.size());
  for (char c : strText) {
    if (c == '%') strEscaped += '%';
    strEscaped += c;
  }
  return strEscaped;
}

void Enter(const char* pszSignature) { WriteLine(std::string("[ENTER] ") + pszSignature); }

void Enter(const char* pszSignature, const std::string& strDetail) {
  WriteLine(std::string("[ENTER] ") + pszSignature + " " + Literal(strDetail));
}

void Leave(const char* pszSignature) { WriteLine(std::string("[LEAVE] ") + pszSignature); }

void Leave(const char* pszSignature, int nResult) {
  WriteLine(std::string("[LEAVE] ") + pszSignature + ", rc=" + std::to_string(nResult));
}

void LeaveBool(const char* pszSignature, bool bResult) {
  WriteLine(std::string("[LEAVE] ") + pszSignature + ", rc=" + (bResult ? "TRUE" : "FALSE"));
}

}  // namespace logger_trace
