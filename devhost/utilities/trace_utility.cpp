// CTraceUtility::WriteDebug: the debug trace of the development host.
//
// A call whose level has a bit in devhost::TraceMask() appends one line to
// devhost::TraceFile():
//
//     <YYYY-MM-DDTHH:MM:SS> <module> <level> <text>
//
// e.g. "2026-11-22T21:00:00 cli 4 [ENTER] int CLoggerConfigCmd::Save()". The
// text is the format with its values, byte for byte, however long. The trace
// never disturbs the command: a line that cannot be made or written is
// dropped, and errno is left as the caller had it.
//
// Lines of the levels that explain a refusal also go to the reasons of the
// current command (devhost/utilities/refusal_reasons.h), whatever the mask;
// under `ktl-cli -v` every line is also echoed on standard error.
#include "host/trace_utility.h"

#include <cerrno>
#include <cstdarg>
#include <string>

#include "devhost/files/append_file.h"
#include "devhost/files/paths.h"
#include "devhost/utilities/format.h"
#include "devhost/utilities/refusal_reasons.h"
#include "devhost/utilities/timestamp.h"
#include "devhost/utilities/trace_echo.h"

namespace {

// Formatted even when the mask is off: they may explain a refusal.
const unsigned kReasonLevels =
    CTraceUtility::TRACE_DBG_NOTE | CTraceUtility::TRACE_DBG_ENV | CTraceUtility::TRACE_DBG_PARAM;

void AppendTraceLine(const char* pszModule, unsigned nLevel, const char* pszFormat, va_list args) noexcept {
  try {
    const bool bTraced = (nLevel & devhost::TraceMask()) != 0;
    const bool bReason = (nLevel & kReasonLevels) != 0;
    const bool bEchoed = devhost::isTraceEchoed();
    if ((!bTraced && !bReason && !bEchoed) || pszFormat == nullptr) return;
    const std::string strText = devhost::FormatV(pszFormat, args);
    if (bReason) devhost::NoteTracedReason(pszModule, nLevel, pszFormat, strText);
    if (bEchoed) devhost::EchoTraceLine(pszModule, nLevel, strText);
    if (!bTraced) return;
    const std::string strLine = devhost::LocalTimestamp() + " " + (pszModule ? pszModule : "-") + " " +
                                std::to_string(nLevel) + " " + strText + "\n";
    std::string strIgnored;
    devhost::AppendToFile(devhost::TraceFile(), strLine, strIgnored);
  } catch (...) {
    // Dropped: tracing must never change what the command does.
  }
}

}  // namespace

void CTraceUtility::WriteDebug(const char* pszModule, TRACE_DBG_LEVEL eLevel, const char* pszFormat, ...) {
  const int nSavedErrno = errno;
  va_list args;
  va_start(args, pszFormat);
  AppendTraceLine(pszModule, static_cast<unsigned>(eLevel), pszFormat, args);
  va_end(args);
  errno = nSavedErrno;
}
