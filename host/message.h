// The host's message service: shows catalogue messages and asks the
// operator catalogue questions. Defined by the host; the object keeps no
// state of its own that a plug-in relies on.
#ifndef KTL_HOST_MESSAGE_H
#define KTL_HOST_MESSAGE_H

#include <string>

#include "host/host_api.h"

class KTL_HOST_API CMessage {
 public:
  CMessage();
  virtual ~CMessage();

  // Shows the catalogue text of strMsgId with the code and the extra text.
  // Returns what the command should return when the message reports its
  // failure (the host decides; 0 for informational messages).
  int show(std::string strMsgId, unsigned long ulCode, std::string strExtra);

  // Asks the catalogue question strMsgId. True = go on, false = stop.
  bool Inquiry(std::string strMsgId, int nDefault);
};

#endif
