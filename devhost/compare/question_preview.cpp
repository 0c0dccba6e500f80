// Previews of the save and discard questions (see question_preview.h).
#include "devhost/compare/question_preview.h"

#include <ostream>

#include "devhost/compare/pending_comparison.h"
#include "devhost/utilities/terminal_text.h"

namespace devhost {
namespace {

const char kSaveQuestion[] = "MSG_CLI_SAVE_PARAM";
const char kDiscardQuestion[] = "MSG_CLI_DISCARD_PARAM";

std::string ChangeCount(size_t nChanges) {
  return std::to_string(nChanges) + (nChanges == 1 ? " pending change" : " pending changes");
}

}  // namespace

QuestionNeed PreviewQuestion(const std::string& strMsgId, std::ostream& out) {
  const bool bSave = strMsgId == kSaveQuestion;
  if (!bSave && strMsgId != kDiscardQuestion) return QuestionNeed::kAsk;
  CPendingComparison comparison;
  std::string strError;
  if (!ComparePending(comparison, strError)) return QuestionNeed::kAsk;
  if (!comparison.bHasEdits) return QuestionNeed::kNothingTo;
  const std::vector<std::string>& vecChanges = comparison.vecChanges;
  if (vecChanges.empty()) {
    out << "The pending configuration is the same as the one in effect.\n";
  } else if (!bSave) {
    out << "This drops " << ChangeCount(vecChanges.size()) << " (compare logger lists "
        << (vecChanges.size() == 1 ? "it" : "them") << ").\n";
  } else {
    out << "Saving puts " << ChangeCount(vecChanges.size()) << " into effect (in effect " << ChangeArrow()
        << " pending):\n";
    for (const std::string& strLine : vecChanges) out << "  " << EscapeControlBytes(strLine) << "\n";
  }
  return QuestionNeed::kAsk;
}

}  // namespace devhost
