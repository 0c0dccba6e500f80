// The accessor of the logging tool's service: the configuration in effect,
// the pending (edited, not yet saved) configuration and the edit session.
//
// Defined by the host. The object holds one opaque pointer for the host's
// own use; a host implementation must not need more room than that, because
// the plug-in allocates the object with the size declared here.
#ifndef KTL_HOST_TOOL_SERVICE_LOGGER_ACC_H
#define KTL_HOST_TOOL_SERVICE_LOGGER_ACC_H

#include <string>

#include "config/logger_conf.h"
#include "host/host_api.h"

class KTL_HOST_API CToolServiceLoggerAcc {
 public:
  CToolServiceLoggerAcc();
  ~CToolServiceLoggerAcc();

  // Prepares the pending configuration for the session nProcessId.
  // 0 = ready; -1 = another session holds the pending configuration;
  // any other value = the logging tool was not found.
  int initWrite(int nProcessId);
  // True when the session nProcessId may save the pending configuration.
  bool CheckProcessId(int nProcessId);
  // Fills conf with the configuration in effect. 0 = done; 176 = the tool is
  // not installed; any other value = failure.
  int GetParameter(Velmora_LoggerConf& conf);
  // Fills conf with the pending configuration. False when there is none or
  // it cannot be read.
  bool ReadConfFile(Velmora_LoggerConf& conf);
  // Makes conf the configuration in effect. Results as for GetParameter.
  int SetParameter(Velmora_LoggerConf conf);
  // Takes a copy of a record for the host's own use (a dump to the trace).
  void ShowConf(Velmora_LoggerConf conf);
  // Drops the pending configuration. True on success.
  bool Discard();
  // Reads one value of the pending configuration. True when found.
  bool GetString(std::string strSection, std::string strKey, std::string& strValue);
  // Writes one value of the pending configuration. True when written.
  bool WriteString(std::string strSection, std::string strKey, std::string strValue);

 private:
  void* m_pState;  // the host's own state
};

#endif
