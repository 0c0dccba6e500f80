// CMessage: shows catalogue messages. Informational messages go to standard
// output, once the command's change is committed (held_messages.h), and
// return 0; errors go to standard error, prefixed with "Error: "
// and followed by the code in hex when it is not 0, and return
// kErrorShownResult, so that a refused command stops the host.
#include "host/message.h"

#include <iomanip>
#include <iostream>
#include <sstream>

#include "devhost/messages/held_messages.h"
#include "devhost/messages/message_catalogue.h"
#include "devhost/service/pending_edits.h"
#include "devhost/utilities/refusal_reasons.h"

namespace {

const int kInformationShown = 0;
// What show returns for every error, known or not.
const int kErrorShownResult = 1;

std::string HexCode(unsigned long ulCode) {
  std::ostringstream text;
  text << "0x" << std::uppercase << std::hex << std::setw(8) << std::setfill('0') << ulCode;
  return text.str();
}

}  // namespace

CMessage::CMessage() {}

CMessage::~CMessage() {}

int CMessage::show(std::string strMsgId, unsigned long ulCode, std::string strExtra) {
  std::string strText;
  std::string strProblem;
  const bool bKnown = devhost::LookupMessageText(strMsgId, strText, strProblem);
  if (!strProblem.empty()) std::cerr << "ktl-cli: " << strProblem << std::endl;
  if (!bKnown) strText = "message " + strMsgId + " (no text in the message catalogue)";
  if (!strExtra.empty()) strText += " " + strExtra;

  const bool bInformational = devhost::isInformationalMessage(strMsgId);
  // Once the service has said why the command fails (naming the file), the
  // plug-in's own messages would only hide the reason: "the service failed",
  // "syslog output is off" read from a refused file, or "the change is
  // held" for a change that will not be written.
  if (devhost::CPendingEdits::OfThisCommand().hasFailed()) {
    return bInformational ? kInformationShown : kErrorShownResult;
  }
  // A success stays a success even when the catalogue lacks its text.
  if (bInformational) {
    devhost::ShowInformation(strText);
    return kInformationShown;
  }
  devhost::NoteShownError(strMsgId);
  std::cerr << "Error: " << strText;
  if (ulCode != 0) std::cerr << " (code " << HexCode(ulCode) << ")";
  std::cerr << std::endl;
  const std::string strDetail = devhost::DetailOfError(strMsgId);
  if (!strDetail.empty()) std::cerr << "ktl-cli: " << strDetail << std::endl;
  return kErrorShownResult;
}
