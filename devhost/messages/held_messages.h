// The informational messages of a command ("the change is held", "saved",
// "discarded") report a change. ktl-cli holds them while the command runs
// and prints them once the change is committed, so that a command that fails
// at its end does not first say that it succeeded: on a failure the failure
// is shown instead. A question shows what is held before it asks, so that
// the operator reads everything in order.
#ifndef KTL_DEVHOST_HELD_MESSAGES_H
#define KTL_DEVHOST_HELD_MESSAGES_H

#include <string>

namespace devhost {

// Holds the informational messages shown from now on.
void StartHoldingMessages();

// Shows one informational message on standard output, or holds it.
void ShowInformation(const std::string& strText);

// Prints what is held; later messages are held still.
void FlushHeldMessages();

// Ends the holding: prints what is held when bPrint, drops it otherwise.
// Returns the held messages that were printed, one per line.
std::string EndHoldingMessages(bool bPrint);

// A detail that the host adds after the plug-in's error strMsgId, when the
// command shows it: who holds the pending edits, say, after "being edited
// in another session". Forgotten when the holding ends.
void AddDetailToError(const std::string& strMsgId, const std::string& strDetail);
// The detail for strMsgId, or "".
std::string DetailOfError(const std::string& strMsgId);

}  // namespace devhost

#endif
