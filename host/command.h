// The host CLI's command framework: the command base class and the
// option/value pairs that its word grouping produces.
//
// Every function declared here is defined by the host. A command plug-in
// derives from CCommand, overrides the protocol operations and returns its
// object from an exported factory; the host owns the object and deletes it
// through the virtual destructor. Not thread-safe: the host drives one command
// at a time.
#ifndef KTL_HOST_COMMAND_H
#define KTL_HOST_COMMAND_H

#include <string>
#include <vector>

#include "host/host_api.h"

// One option/value pair of a command line, e.g. "-alert" with "inf".
class KTL_HOST_API CCommandParam {
 public:
  CCommandParam();
  CCommandParam(const CCommandParam& other);
  ~CCommandParam();

  std::string m_strOption;  // the option word as typed, e.g. "-alert"
  std::string m_strValue;   // the word giving its value; empty when none
};

class KTL_HOST_API CCommand {
 public:
  CCommand();
  virtual ~CCommand();

  // Groups the words into m_vecCommandParam in command-line order.
  // Returns 0 on success, non-zero when the words cannot be grouped.
  virtual int CheckParam(std::vector<std::string> vecParam);
  // The host's own check before execution; 0 = go on.
  virtual int CheckExec();
  // The host's own execution step; 0 = go on.
  virtual int Exec(std::string strCommand);
  virtual int SetRequiredValParam(std::vector<std::string> vecParam);
  virtual int CheckServiceStatus();

  // The process identifier that the host reports for the running command
  // (the operator's session); the same value for the whole command.
  int GetPPID();

 protected:
  std::vector<CCommandParam> m_vecCommandParam;  // filled by CheckParam
  std::string m_strTemplateName;                 // the command's display template
};

#endif
