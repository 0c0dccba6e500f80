// What a command traced and showed on its way to a refusal, kept so that
// ktl-cli can explain the refusal afterwards (devhost/help/refusal_explanation.h).
//
// CTraceUtility::WriteDebug hands every line of levels 16 (rejected
// parameters), 2 (failures of the environment) and 1 (notes) to
// NoteTracedReason, whatever the trace mask; GetPrivateProfileIntA reports
// each value it serves to NoteLimitRead; CMessage::show reports each error it
// shows. The host's own notes (module "ktl-cli") and lines without an
// operation's signature are not diagnostics. Nothing is interpreted here.
// Not thread-safe: one command at a time per process.
#ifndef KTL_DEVHOST_REFUSAL_REASONS_H
#define KTL_DEVHOST_REFUSAL_REASONS_H

#include <string>
#include <vector>

namespace devhost {

// One value served from a limits file: section, key, the file as the
// plug-in named it, and the value returned (configured or built-in).
struct CLimitRead {
  std::string strSection;
  std::string strKey;
  std::string strFile;
  int nValue;
};

// One diagnostic line of the plug-in, without the operation's signature.
struct CTracedDiagnostic {
  unsigned nLevel;
  std::string strFormat;                 // the message as written in the plug-in: "Parameter Error: %s %s"
  std::string strText;                   // with its values: "Parameter Error: -threshold 5"
  std::vector<CLimitRead> vecLastReads;  // the last two limits read before it, oldest first
};

struct CCommandRecord {
  std::vector<CTracedDiagnostic> vecDiagnostics;
  std::vector<std::string> vecShownErrors;  // message identifiers, in order
  std::vector<std::string> vecHostFacts;    // what the host's services noticed, e.g. "nothing pending"
};

// Forgets what the previous command traced and showed.
void StartCollectingReasons();

// One traced line: module, level, the format and the text with its values.
void NoteTracedReason(const char* pszModule, unsigned nLevel, const char* pszFormat, const std::string& strText);

void NoteLimitRead(const std::string& strSection, const std::string& strKey, const std::string& strFile, int nValue);

// An error message shown to the operator, by its identifier.
void NoteShownError(const std::string& strMsgId);

// A fact a host service noticed that may explain a refusal, e.g.
// "nothing pending" when the plug-in asked for pending edits and there were
// none. Facts are named in the command's reason rules.
void NoteHostFact(const std::string& strFact);

const CCommandRecord& CollectedRecord();

}  // namespace devhost

#endif
