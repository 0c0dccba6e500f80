// Collects the reasons of a refusal (see refusal_reasons.h).
#include "devhost/utilities/refusal_reasons.h"

#include <algorithm>
#include <cctype>
#include <sstream>

#include "devhost/utilities/terminal_text.h"

namespace {

const unsigned kReasonLevels = 1 | 2 | 16;  // notes, environment, rejected parameters
const char kHostModule[] = "ktl-cli";
const char kMinSuffix[] = "_MIN";
const char kMaxSuffix[] = "_MAX";
// A runaway trace must not grow the process without bound.
const size_t kMaxReasons = 64;

struct LimitRead {
  std::string strSection;
  std::string strKey;
  std::string strFile;
  int nValue;
};

struct Collection {
  std::vector<std::string> vecReasons;
  std::vector<LimitRead> vecRecentReads;  // the last two, oldest first
};

Collection& Current() {
  static Collection collection;
  return collection;
}

// Diagnostic lines start with the operation's signature text, e.g.
// "bool CLoggerConfigCmd::CheckSetThreshold() ": a qualified name with its
// parameter list, then one blank. That prefix says nothing to an operator.
std::string WithoutSignature(const std::string& strText) {
  const std::string::size_type nScope = strText.find("::");
  if (nScope == std::string::npos) return strText;
  const std::string::size_type nOpen = strText.find('(', nScope);
  if (nOpen == std::string::npos || strText.find(')') < nOpen) return strText;
  const std::string::size_type nClose = strText.find(')', nOpen);
  if (nClose == std::string::npos || nClose + 1 >= strText.size() || strText[nClose + 1] != ' ') return strText;
  return strText.substr(nClose + 2);
}

std::string Lower(std::string strText) {
  std::transform(strText.begin(), strText.end(), strText.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return strText;
}

bool EndsWith(const std::string& strText, const std::string& strSuffix) {
  return strText.size() > strSuffix.size() &&
         strText.compare(strText.size() - strSuffix.size(), strSuffix.size(), strSuffix) == 0;
}

// The word before the last one: the option whose value was rejected.
std::string OptionOfRejectedValue(const std::string& strReason) {
  std::istringstream words(strReason);
  std::vector<std::string> vecWords;
  for (std::string strWord; words >> strWord;) vecWords.push_back(strWord);
  return vecWords.size() >= 2 ? vecWords[vecWords.size() - 2] : std::string();
}

// " (allowed N to M: ...)" when the last two reads were the MIN and MAX of
// the option the reason names; empty otherwise.
std::string RangeInForce(const std::string& strReason, const std::vector<LimitRead>& vecReads) {
  if (vecReads.size() != 2) return "";
  const LimitRead& min = vecReads[0];
  const LimitRead& max = vecReads[1];
  if (!EndsWith(min.strKey, kMinSuffix) || !EndsWith(max.strKey, kMaxSuffix)) return "";
  const std::string strStem = min.strKey.substr(0, min.strKey.size() - 4);
  if (max.strKey != strStem + kMaxSuffix || min.strSection != max.strSection || min.strFile != max.strFile) return "";
  if (Lower(OptionOfRejectedValue(strReason)) != "-" + Lower(strStem)) return "";
  return " (allowed " + std::to_string(min.nValue) + " to " + std::to_string(max.nValue) + ": " + min.strSection + " " +
         min.strKey + ", " + max.strKey + " in " + min.strFile + ", or built-in)";
}

}  // namespace

namespace devhost {

void StartCollectingReasons() { Current() = Collection(); }

void NoteTracedReason(const char* pszModule, unsigned nLevel, const std::string& strText) {
  if ((nLevel & kReasonLevels) == 0 || (pszModule != nullptr && std::string(pszModule) == kHostModule)) return;
  Collection& collection = Current();
  if (collection.vecReasons.size() >= kMaxReasons) return;
  // Only the plug-in's diagnostic lines, which start with its signature
  // text; the host's own notes under the same module explain nothing.
  const std::string strWithout = WithoutSignature(strText);
  if (strWithout.size() == strText.size()) return;
  // Values from the command line may hold control bytes: never raw to the
  // terminal, and one reason stays one line.
  const std::string strReason = EscapeControlBytes(strWithout);
  const std::string strFull = strReason + RangeInForce(strReason, collection.vecRecentReads);
  collection.vecRecentReads.clear();
  std::vector<std::string>& vecReasons = collection.vecReasons;
  if (std::find(vecReasons.begin(), vecReasons.end(), strFull) == vecReasons.end()) vecReasons.push_back(strFull);
}

void NoteLimitRead(const std::string& strSection, const std::string& strKey, const std::string& strFile, int nValue) {
  std::vector<LimitRead>& vecReads = Current().vecRecentReads;
  vecReads.push_back(LimitRead{strSection, strKey, strFile, nValue});
  if (vecReads.size() > 2) vecReads.erase(vecReads.begin());
}

std::vector<std::string> CollectedReasons() { return Current().vecReasons; }

}  // namespace devhost
