#include "devhost/messages/question_outcome.h"

namespace devhost {
namespace {
bool g_bDeclined = false;
}  // namespace

void ForgetQuestionOutcome() { g_bDeclined = false; }
void NoteQuestionDeclined() { g_bDeclined = true; }
bool wasQuestionDeclined() { return g_bDeclined; }

}  // namespace devhost
