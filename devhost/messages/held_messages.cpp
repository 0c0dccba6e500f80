#include "devhost/messages/held_messages.h"

#include <iostream>

namespace devhost {
namespace {

struct CHeldMessages {
  bool bHolding = false;
  std::string strHeld;   // not printed yet
  std::string strShown;  // held, then printed, since the holding started
};

CHeldMessages& Held() {
  static CHeldMessages held;
  return held;
}

}  // namespace

void StartHoldingMessages() { Held() = CHeldMessages{true, std::string(), std::string()}; }

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
  const std::string strShown = Held().strShown;
  Held() = CHeldMessages();
  return strShown;
}

}  // namespace devhost
