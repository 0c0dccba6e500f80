// CLoggerConfigCmd: the "logger" command of the host CLI.
//
// The host obtains one object per command from GetCommandFactorylogger, owns
// it, calls CheckParam, CheckExec and Exec in that order (each only after the
// previous one returned 0) and deletes it through the virtual destructor.
// The object owns its message service and its accessor of the logging tool's
// service. Operations return 0 on success; a failure that was shown to the
// operator returns the value that CMessage::show returned for it. Only
// CheckParam catches exceptions; every other operation lets those of the
// host pass. Single-threaded.
//
// Where the operations live: construction, Exec and CheckExec in plugin/;
// CheckParam, the value checkers and the limits in parse/; the edit commands
// in config/; save, discard, merge, confirm and the mount check in pending/;
// the display in display/.
#ifndef KTL_PLUGIN_LOGGER_CONFIG_CMD_H
#define KTL_PLUGIN_LOGGER_CONFIG_CMD_H

#include <string>
#include <vector>

#include "config/logger_conf.h"
#include "host/command.h"
#include "host/message.h"
#include "host/template_engine.h"
#include "host/tool_service_logger_acc.h"

class CLoggerConfigCmd : public CCommand {
 public:
  CLoggerConfigCmd();
  virtual ~CLoggerConfigCmd();

  // Host protocol.
  virtual int CheckParam(std::vector<std::string> vecParam);
  virtual int CheckExec();
  virtual int Exec(std::string strCommand);

  // Value checkers: never show a message; out arguments written only on true.
  bool CheckStrParam(std::string strValue, std::string strAllowed, std::string& strOut);
  bool CheckCommandPair(CCommandParam param, std::string strName, std::string strAllowed, std::string& strOut);
  bool CheckOnOffParam(std::string strValue, int& nOut);
  bool CheckIntParam(std::string strValue, int nMin, int nMax, int& nOut);

  // Cross-checks of the numeric options against the limits file.
  bool CheckSetThreshold();
  bool CheckMountParam();

  // Edit commands and their value writers (pending configuration).
  int CmdSyslog();
  int CmdAlert();
  int CmdDevice();
  int CmdMount();
  int EditIntValue(std::string strSection, std::string strKey, int nValue);
  int EditOnOff(std::string strSection, std::string strKey, bool bShowHold);
  bool isMultiplexDefinition(std::string strMountPoint, Velmora_LoggerFsThresholdConf& entry);

  // The life of the pending configuration.
  int Save();
  int Discard();
  int MergeConf(Velmora_LoggerConf& conf);
  int Confirm();

  // Mounted file systems.
  bool isMounted(std::string strMountPoint);
  int CheckEffectiveFileSystem(Velmora_LoggerConf& conf);

  // Display of one record through the host's template engine.
  int Show(Velmora_LoggerConf& conf);
  bool ShowSyslogOut(Velmora_LoggerConf& conf, CTempleteContext& context);
  void ShowCpuInfo(Velmora_LoggerConf& conf, CTempleteContext& context);
  void ShowMemInfo(Velmora_LoggerConf& conf, CTempleteContext& context);
  void ShowFsInfo(Velmora_LoggerConf& conf, CTempleteContext& context);
  std::string Int2String(int nValue);

  // Whether syslog output is on: the pending configuration decides when it
  // can be read, else the configuration in effect.
  bool isSyslogoutputOn();

  // Shows a message with code 0 and returns show's result.
  int ShowMessage(const char* pszMsgId);
  // Shows "MSG_CLI_ERROR_APPLICATION" with its code and returns show's result.
  int ShowApplicationError();
  // Answers a failed status of the accessor: 176 with
  // "MSG_CLI_LOGGER_INSTALL", any other with "MSG_CLI_ERROR_APPLICATION".
  int ShowServiceFailure(int nStatus);

  int m_nSettingCmd;                    // 1 for "-alert", "-device", "-mp"
  CMessage* m_pMessage;                 // owned
  CToolServiceLoggerAcc* m_pLoggerAcc;  // owned
  int m_nOnOff;                         // 0x11 on, 0x10 off, -1 not given
  int m_nNoCheck;                       // "-save"/"-discard": 1 with "-nochk", else 0; -1 otherwise
  int m_nDevice;                        // 0 cpu, 1 mem, 2 disk; -1 not given
  int m_nAlertLevel;                    // 0 inf, 1 wrn, 2 err; -1 not given
  int m_nInterval;                      // "-interval"; -1 not given
  int m_nCount;                         // "-count"; -1 not given
  int m_nThreshold;                     // "-threshold"; -1 not given
  bool m_bSkipProcessCheck;             // "-discard" and "-confirm" run without it
  std::string m_strConfirmType;         // "cur" or "edit"
  std::string m_strMountPoint;          // "-mp" value
  Velmora_LoggerConf m_LoggerConf;      // the configuration in effect, loaded by MergeConf

 private:
  CLoggerConfigCmd(const CLoggerConfigCmd&) = delete;
  CLoggerConfigCmd& operator=(const CLoggerConfigCmd&) = delete;
};

// The operation that Exec runs, selected by the last successful CheckParam.
// Library-wide (hidden), empty when the library is loaded; it outlives the
// command objects.
typedef int (CLoggerConfigCmd::*LoggerExecMethod)();
extern LoggerExecMethod pExecMethod;

#endif
