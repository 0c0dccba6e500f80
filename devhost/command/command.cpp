// CCommand: the development host's command base. It groups the words of the
// command line into option/value pairs and, as its execution step, starts the
// command's audit record (ktl-cli ends it with the exit status). When the
// audit log cannot be written, a command that may change the state does not
// run; one that only looks (a read-only form of its description) runs with a
// warning.
#include "host/command.h"

#include <iostream>

#include "devhost/command/audit_log.h"
#include "devhost/command/current_command.h"
#include "devhost/help/command_description.h"
#include "devhost/service/edit_session.h"
#include "devhost/utilities/terminal_text.h"

namespace {

// Results of the base's own steps.
const int kOk = 0;
const int kValueWithoutOption = 1;
const int kAuditNotWritten = 1;

bool isOptionWord(const std::string& strWord) { return !strWord.empty() && strWord[0] == '-'; }

}  // namespace

CCommand::CCommand() : m_strTemplateName(devhost::CurrentCommand()) {}

CCommand::~CCommand() {}

// A word starting with "-" opens a pair; the next word is its value unless it
// starts with "-" too. A value word with no option before it cannot be
// grouped: the pairs are then left empty.
int CCommand::CheckParam(std::vector<std::string> vecParam) {
  m_vecCommandParam.clear();
  for (size_t i = 0; i < vecParam.size(); ++i) {
    if (!isOptionWord(vecParam[i])) {
      m_vecCommandParam.clear();
      return kValueWithoutOption;
    }
    CCommandParam param;
    param.m_strOption = vecParam[i];
    if (i + 1 < vecParam.size() && !isOptionWord(vecParam[i + 1])) param.m_strValue = vecParam[++i];
    m_vecCommandParam.push_back(param);
  }
  return kOk;
}

int CCommand::CheckExec() { return kOk; }

int CCommand::Exec(std::string strCommand) {
  std::string strError;
  const devhost::AuditStart eStart = devhost::BeginAuditRecord(GetPPID(), strCommand, strError);
  if (eStart == devhost::AuditStart::kStarted) return kOk;
  strError = devhost::EscapeControlBytes(strError);
  if (eStart == devhost::AuditStart::kUnwritable && !m_vecCommandParam.empty() &&
      devhost::isReadOnlyForm(devhost::CurrentCommand(), m_vecCommandParam.front().m_strOption)) {
    std::cerr << "ktl-cli: warning: this command leaves no audit record: " << strError << std::endl;
    return kOk;
  }
  std::cerr << "ktl-cli: the command was not run: its audit record could not be written (" << strError << ")"
            << std::endl;
  return kAuditNotWritten;
}

int CCommand::SetRequiredValParam(std::vector<std::string> /*vecParam*/) { return kOk; }

int CCommand::CheckServiceStatus() { return kOk; }

// The operator's terminal session, which owns pending edits
// (devhost/service/edit_session.h).
int CCommand::GetPPID() { return devhost::CurrentSession(); }
