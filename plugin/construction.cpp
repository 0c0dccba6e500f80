// Construction and destruction of the command object.
#include <memory>

#include "plugin/logger_config_cmd.h"

CLoggerConfigCmd::CLoggerConfigCmd()
    : m_nSettingCmd(0),
      m_pMessage(nullptr),
      m_pLoggerAcc(nullptr),
      m_nOnOff(-1),
      m_nNoCheck(-1),
      m_nDevice(-1),
      m_nAlertLevel(-1),
      m_nInterval(-1),
      m_nCount(-1),
      m_nThreshold(-1),
      m_bSkipProcessCheck(false) {
  // Held by smart pointers until construction can no longer throw, so that a
  // host constructor or initWrite that throws releases what was built.
  std::unique_ptr<CMessage> message(new CMessage);
  std::unique_ptr<CToolServiceLoggerAcc> loggerAcc(new CToolServiceLoggerAcc);
  // Claims the edit session early; Exec asks again and acts on the answer.
  loggerAcc->initWrite(GetPPID());
  m_pMessage = message.release();
  m_pLoggerAcc = loggerAcc.release();
}

CLoggerConfigCmd::~CLoggerConfigCmd() {
  delete m_pLoggerAcc;
  delete m_pMessage;
}
