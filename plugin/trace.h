// The plug-in's trace convention, on top of CTraceUtility::WriteDebug.
//
// Every line goes to module "cli". Entry and exit lines are "[ENTER] " or
// "[LEAVE] " and the operation's signature text at level 4; diagnostic lines
// are the signature text, one blank and a printf-style message. Text that
// comes from the command line is never handed over as part of a format
// unescaped: a "%" in it is written literally.
#ifndef KTL_PLUGIN_TRACE_H
#define KTL_PLUGIN_TRACE_H

#include <string>

#include "host/trace_utility.h"

namespace logger_trace {

// "%" doubled, so that the text reads literally when used as a format.
std::string Literal(const std::string& strText);

// "[ENTER] <signature>".
void Enter(const char* pszSignature);
// "[ENTER] <signature> <detail>", detail written literally.
void Enter(const char* pszSignature, const std::string& strDetail);
// "[LEAVE] <signature>".
void Leave(const char* pszSignature);
// "[LEAVE] <signature>, rc=<decimal>".
void Leave(const char* pszSignature, int nResult);
// "[LEAVE] <signature>, rc=TRUE" or "..., rc=FALSE".
void LeaveBool(const char* pszSignature, bool bResult);

// "<signature> <message>" at the given level; the message is a printf
// format whose values follow.
template <typename... Args>
void Note(CTraceUtility::TRACE_DBG_LEVEL eLevel, const char* pszSignature, const char* pszMessage, Args... args) {
  const std::string strFormat = std::string(pszSignature) + " " + pszMessage;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  CTraceUtility::WriteDebug("cli", eLevel, strFormat.c_str(), args...);
#pragma GCC diagnostic pop
}

}  // namespace logger_trace

#endif
