// The message catalogue: the text of each message identifier, read from the
// INI file devhost::CatalogueFile() (section "Messages", one
// "IDENTIFIER = text" per message). Read afresh on each look-up: a command
// shows one or two messages.
#ifndef KTL_DEVHOST_MESSAGE_CATALOGUE_H
#define KTL_DEVHOST_MESSAGE_CATALOGUE_H

#include <string>

namespace devhost {

// True with the text of strMsgId. False when the catalogue has no non-empty
// text for it; strProblem is then empty, or says why the catalogue itself
// could not be read (missing file, syntax error with its line).
bool LookupMessageText(const std::string& strMsgId, std::string& strText, std::string& strProblem);

// True with what is said when question strMsgId is declined (section
// "Declined"), e.g. "Nothing was saved."; as LookupMessageText otherwise.
bool LookupDeclinedText(const std::string& strMsgId, std::string& strText, std::string& strProblem);

// Informational messages report a success; every other identifier is an
// error or a question.
bool isInformationalMessage(const std::string& strMsgId);

}  // namespace devhost

#endif
