// Whether the running command's question was declined or left unanswered.
//
// The plug-in goes on without a word when its question is declined, and
// succeeds. ktl-cli then exits with a status of its own
// (devhost::kExitDeclined), so that a script can tell "nothing was done"
// from a save or a discard.
#ifndef KTL_DEVHOST_QUESTION_OUTCOME_H
#define KTL_DEVHOST_QUESTION_OUTCOME_H

namespace devhost {

// Forgets the outcome of the previous command's question.
void ForgetQuestionOutcome();
// Records that a question was declined or not answered.
void NoteQuestionDeclined();
bool wasQuestionDeclined();

}  // namespace devhost

#endif
