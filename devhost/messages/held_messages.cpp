#include "devhost/messages/held_messages.h"

#include <iostream>
#include <map>

namespace devhost {
namespace {

struct CHeldMessages {
  bool bHolding = false;
  std::string strHeld;   // not printed yet
  std::string strShown;  // held, then printed, since the holding started
  std::map<std::string, std::string> mapErrorDetails;
};

CHeldMessages& Held() {
  static CHeldMessages held;
  return held;
}

}  // namespace

void StartHoldingMessages() {
  Held() = CHeldMessages();
  Held().bHolding = true;
}

void ShowInformation(const std::string& strText) {
  if (Held().bHolding) {
    Held().strHeld += strText + "\n";
  } else {
    std::cout << strText << std::endl;
  }
}

void FlushHeldMessages() {
  CHeldMessages& held = Held();
  if (held.strHeld.empty()) return;
  std::cout << held.strHeld << std::flush;
  held.strShown += held.strHeld;
  held.strHeld.clear();
}

std::string EndHoldingMessages(bool bPrint) {
  if (bPrint) FlushHeldMessages();
  std::string strShown = Held().strShown;
  Held() = CHeldMessages();
  return strShown;
}

void AddDetailToError(const std::string& strMsgId, const std::string& strDetail) {
  Held().mapErrorDetails[strMsgId] = strDetail;
}

std::string DetailOfError(const std::string& strMsgId) {
  const auto detail = Held().mapErrorDetails.find(strMsgId);
  return detail == Held().mapErrorDetails.end() ? std::string() : detail->second;
}

}  // namespace devhost
