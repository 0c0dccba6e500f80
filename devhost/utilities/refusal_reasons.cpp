// Collects what a command traced and showed (see refusal_reasons.h).
#include "devhost/utilities/refusal_reasons.h"

#include <algorithm>

namespace {

const unsigned kReasonLevels = 1 | 2 | 16;  // notes, environment, rejected parameters
const char kHostModule[] = "ktl-cli";
// A runaway trace must not grow the process without bound.
const size_t kMaxDiagnostics = 256;

struct Collection {
  devhost::CCommandRecord record;
  std::vector<devhost::CLimitRead> vecRecentReads;  // the last two, oldest first
};

Collection& Current() {
  static Collection collection;
  return collection;
}

// Diagnostic lines start with the operation's signature text, e.g.
// "bool CLoggerConfigCmd::CheckSetThreshold() ": a qualified name with its
// parameter list, then one blank. Its length, or 0 when there is none.
std::string::size_type SignatureLength(const std::string& strText) {
  const std::string::size_type nScope = strText.find("::");
  if (nScope == std::string::npos) return 0;
  const std::string::size_type nOpen = strText.find('(', nScope);
  if (nOpen == std::string::npos || strText.find(')') < nOpen) return 0;
  const std::string::size_type nClose = strText.find(')', nOpen);
  if (nClose == std::string::npos || nClose + 1 >= strText.size() || strText[nClose + 1] != ' ') return 0;
  return nClose + 2;
}

}  // namespace

namespace devhost {

void StartCollectingReasons() { Current() = Collection(); }

void NoteTracedReason(const char* pszModule, unsigned nLevel, const char* pszFormat, const std::string& strText) {
  if ((nLevel & kReasonLevels) == 0 || pszFormat == nullptr ||
      (pszModule != nullptr && std::string(pszModule) == kHostModule))
    return;
  Collection& collection = Current();
  std::vector<CTracedDiagnostic>& vecDiagnostics = collection.record.vecDiagnostics;
  if (vecDiagnostics.size() >= kMaxDiagnostics) return;
  // The signature holds no format directive, so it is the same text at the
  // start of the format and of the line.
  const std::string strFormat = pszFormat;
  const std::string::size_type nSignature = SignatureLength(strFormat);
  if (nSignature == 0 || strText.compare(0, nSignature, strFormat, 0, nSignature) != 0) return;
  vecDiagnostics.push_back(
      CTracedDiagnostic{nLevel, strFormat.substr(nSignature), strText.substr(nSignature), collection.vecRecentReads});
  collection.vecRecentReads.clear();
}

void NoteLimitRead(const std::string& strSection, const std::string& strKey, const std::string& strFile, int nValue) {
  std::vector<CLimitRead>& vecReads = Current().vecRecentReads;
  vecReads.push_back(CLimitRead{strSection, strKey, strFile, nValue});
  if (vecReads.size() > 2) vecReads.erase(vecReads.begin());
}

void NoteShownError(const std::string& strMsgId) { Current().record.vecShownErrors.push_back(strMsgId); }

void NoteHostFact(const std::string& strFact) {
  std::vector<std::string>& vecFacts = Current().record.vecHostFacts;
  if (std::find(vecFacts.begin(), vecFacts.end(), strFact) == vecFacts.end()) vecFacts.push_back(strFact);
}

const CCommandRecord& CollectedRecord() { return Current().record; }

}  // namespace devhost
