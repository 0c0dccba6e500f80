// What the operator reads before a save or discard question, as apt lists
// its changes before "Do you want to continue?": the changes a save puts
// into effect, or how many changes a discard drops.
#ifndef KTL_DEVHOST_QUESTION_PREVIEW_H
#define KTL_DEVHOST_QUESTION_PREVIEW_H

#include <iosfwd>
#include <string>

namespace devhost {

enum class QuestionNeed {
  kAsk,       // ask the question as usual
  kNothingTo  // nothing is pending: there is nothing to decide, so the
              // command goes on unasked and reports what it finds
};

// Writes the preview of question strMsgId (nothing for other questions) on
// out. A configuration that cannot be read is left to the command, which
// reads it again and says why.
QuestionNeed PreviewQuestion(const std::string& strMsgId, std::ostream& out);

}  // namespace devhost

#endif
