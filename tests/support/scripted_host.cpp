// The scripted host: answers from scripted::script(), records every call.
#include "tests/support/scripted_host.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "host/command.h"
#include "host/ktl_util.h"
#include "host/message.h"
#include "host/profile.h"
#include "host/string_util.h"
#include "host/tool_service_logger_acc.h"
#include "host/template_engine.h"
#include "host/trace_utility.h"
#include "tests/support/record_text.h"

namespace scripted {

namespace {

struct State {
  Script script;
  std::vector<HostCall> calls;
  std::vector<std::string> mountPaths;
};

State& state() {
  static State s;
  return s;
}

std::string str(long long n) { return std::to_string(n); }

void record(const std::string& strName, std::vector<std::string> vecArgs = {}) {
  if (state().script.bRecord) state().calls.push_back(HostCall{strName, std::move(vecArgs)});
  if (state().script.strThrowIn == strName) {
    if (state().script.bThrowNonStd) throw 42;
    throw std::runtime_error("scripted failure in " + strName);
  }
}

std::string vformat(const char* pszFormat, va_list args) {
  va_list copy;
  va_copy(copy, args);
  const int n = std::vsnprintf(nullptr, 0, pszFormat, copy);
  va_end(copy);
  std::string strText(n > 0 ? static_cast<size_t>(n) : 0, '\0');
  std::vsnprintf(&strText[0], strText.size() + 1, pszFormat, args);
  return strText;
}

}  // namespace

Script& script() { return state().script; }
std::vector<HostCall>& calls() { return state().calls; }

void reset() {
  state().script = Script();
  state().calls.clear();
  for (const std::string& strPath : state().mountPaths) ::unlink(strPath.c_str());
  state().mountPaths.clear();
}

std::vector<std::string> callNames() {
  std::vector<std::string> vecNames;
  for (const HostCall& call : calls())
    if (call.strName != "WriteDebug") vecNames.push_back(call.strName);
  return vecNames;
}

std::vector<std::string>& mountOutputPaths() { return state().mountPaths; }

}  // namespace scripted

using scripted::record;
using scripted::script;
using scripted::str;

// ---- CCommandParam, CCommand ----

CCommandParam::CCommandParam() {}
CCommandParam::CCommandParam(const CCommandParam& other)
    : m_strOption(other.m_strOption), m_strValue(other.m_strValue) {}
CCommandParam::~CCommandParam() {}

CCommand::CCommand() : m_strTemplateName(script().strTemplateName) {}
CCommand::~CCommand() {}

int CCommand::CheckParam(std::vector<std::string> vecParam) {
  std::string strWords;
  for (const std::string& strWord : vecParam) strWords += (strWords.empty() ? "" : " ") + strWord;
  record("CCommand::CheckParam", {strWords});
  if (script().nCheckParamResult != 0) return script().nCheckParamResult;
  // A word starting with "-" opens a pair; the next word that does not is its value.
  m_vecCommandParam.clear();
  for (const std::string& strWord : vecParam) {
    if (!strWord.empty() && strWord[0] == '-') {
      CCommandParam param;
      param.m_strOption = strWord;
      m_vecCommandParam.push_back(param);
    } else if (!m_vecCommandParam.empty() && m_vecCommandParam.back().m_strValue.empty()) {
      m_vecCommandParam.back().m_strValue = strWord;
    } else {
      return 1;
    }
  }
  return 0;
}

int CCommand::CheckExec() { return 0; }

int CCommand::Exec(std::string strCommand) {
  record("CCommand::Exec", {strCommand});
  return script().nExecResult;
}

int CCommand::SetRequiredValParam(std::vector<std::string>) { return 0; }
int CCommand::CheckServiceStatus() { return 0; }

int CCommand::GetPPID() {
  record("GetPPID");
  return script().nPpid;
}

// ---- CMessage ----

CMessage::CMessage() { record("CMessage::CMessage"); }
CMessage::~CMessage() {
  if (script().bRecord) scripted::calls().push_back({"CMessage::~CMessage", {}});
}

int CMessage::show(std::string strMsgId, unsigned long ulCode, std::string strExtra) {
  record("show", {strMsgId, std::to_string(ulCode), strExtra});
  auto it = script().mapShowResult.find(strMsgId);
  return it != script().mapShowResult.end() ? it->second : script().nShowDefault;
}

bool CMessage::Inquiry(std::string strMsgId, int nDefault) {
  record("Inquiry", {strMsgId, str(nDefault)});
  return script().bInquiryAnswer;
}

// ---- CToolServiceLoggerAcc ----

CToolServiceLoggerAcc::CToolServiceLoggerAcc() : m_pState(nullptr) { record("CToolServiceLoggerAcc::CToolServiceLoggerAcc"); }
CToolServiceLoggerAcc::~CToolServiceLoggerAcc() {
  if (script().bRecord) scripted::calls().push_back({"CToolServiceLoggerAcc::~CToolServiceLoggerAcc", {}});
}

int CToolServiceLoggerAcc::initWrite(int nProcessId) {
  record("initWrite", {str(nProcessId)});
  if (script().dqInitWrite.empty()) return script().nInitWriteDefault;
  const int nAnswer = script().dqInitWrite.front();
  script().dqInitWrite.pop_front();
  return nAnswer;
}

bool CToolServiceLoggerAcc::CheckProcessId(int nProcessId) {
  record("CheckProcessId", {str(nProcessId)});
  return script().bCheckProcessId;
}

int CToolServiceLoggerAcc::GetParameter(Velmora_LoggerConf& conf) {
  record("GetParameter");
  conf = script().effective;
  return script().nGetParameterResult;
}

bool CToolServiceLoggerAcc::ReadConfFile(Velmora_LoggerConf& conf) {
  record("ReadConfFile");
  conf = script().pending;
  return script().bReadConfFileResult;
}

int CToolServiceLoggerAcc::SetParameter(Velmora_LoggerConf conf) {
  record("SetParameter", script().bRecord ? ktl_test::RecordLines(conf) : std::vector<std::string>());
  return script().nSetParameterResult;
}

void CToolServiceLoggerAcc::ShowConf(Velmora_LoggerConf conf) {
  record("ShowConf", script().bRecord ? ktl_test::RecordLines(conf) : std::vector<std::string>());
}

bool CToolServiceLoggerAcc::Discard() {
  record("Discard");
  return script().bDiscardResult;
}

bool CToolServiceLoggerAcc::GetString(std::string strSection, std::string strKey, std::string& strValue) {
  record("GetString", {strSection, strKey});
  auto it = script().mapStrings.find(strSection + "/" + strKey);
  if (it == script().mapStrings.end()) return false;
  strValue = it->second;
  return true;
}

bool CToolServiceLoggerAcc::WriteString(std::string strSection, std::string strKey, std::string strValue) {
  record("WriteString", {strSection, strKey, strValue});
  const std::string strName = strSection + "/" + strKey;
  if (script().setFailWrite.count(strName)) return false;
  script().mapStrings[strName] = strValue;
  return true;
}

// ---- Template engine ----

CTempleteContext::CTempleteContext() {}
CTempleteContext::~CTempleteContext() {}

bool CTempleteContext::Init(std::string strTemplateName) {
  record("Init", {strTemplateName});
  m_strTemplateName = strTemplateName;
  return script().bInitResult;
}

void CTempleteContext::PutData(std::string strKey, std::string strValue) {
  record("PutData", {strKey, strValue});
  m_mapData[strKey] = strValue;
}

void CTempleteContext::PutData(std::string strKey, std::vector<std::map<std::string, std::string> > vecRows) {
  std::string strRows;
  for (const auto& row : vecRows) {
    strRows += "{";
    for (const auto& cell : row) strRows += cell.first + "=" + cell.second + ";";
    strRows += "}";
  }
  record("PutData", {strKey, strRows});
  m_mapData[strKey] = vecRows;
}

CTemplateEngine::CTemplateEngine() {}
CTemplateEngine::~CTemplateEngine() {}

bool CTemplateEngine::Output(CTempleteContext context, std::string& strOutput) {
  record("Output", {context.m_strTemplateName});
  if (!script().bOutputResult) return false;
  strOutput = script().strRendered;
  return true;
}

// ---- Utilities ----

std::string CStringUtil::StringToLowerCase(std::string strText) {
  record("StringToLowerCase", {strText});
  std::transform(strText.begin(), strText.end(), strText.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return strText;
}

std::list<std::string> CStringUtil::Split(std::string& strText, const std::string& strSeparator) {
  record("Split", {strText, strSeparator});
  std::list<std::string> lstPieces;
  size_t nStart = 0;
  for (;;) {
    const size_t nAt = strSeparator.empty() ? std::string::npos : strText.find(strSeparator, nStart);
    lstPieces.push_back(strText.substr(nStart, nAt == std::string::npos ? std::string::npos : nAt - nStart));
    if (nAt == std::string::npos) break;
    nStart = nAt + strSeparator.size();
  }
  return lstPieces;
}

std::string CKtlUtil::ExecSystemCmd(const char* pszFormat, ...) {
  va_list args;
  va_start(args, pszFormat);
  const std::string strCommand = scripted::vformat(pszFormat, args);
  va_end(args);
  record("ExecSystemCmd", {strCommand});
  if (script().bMountFileUnreadable) return "/nonexistent/scripted-host/mount-output";
  char szPath[] = "/tmp/scripted-host-mount-XXXXXX";
  const int fd = ::mkstemp(szPath);
  if (fd < 0) throw std::runtime_error("scripted host: mkstemp failed");
  ::close(fd);
  std::ofstream(szPath, std::ios::binary) << script().strMountListing;
  if (script().bRecord) scripted::mountOutputPaths().push_back(szPath);
  return szPath;
}

void CTraceUtility::WriteDebug(const char* pszModule, TRACE_DBG_LEVEL eLevel, const char* pszFormat, ...) {
  if (!script().bRecord) return;
  va_list args;
  va_start(args, pszFormat);
  const std::string strLine = scripted::vformat(pszFormat, args);
  va_end(args);
  // Not through record(): a trace throws only when told to, and only once.
  std::string& strThrowOn = script().strThrowOnTrace;
  if (!strThrowOn.empty() && strLine.compare(0, strThrowOn.size(), strThrowOn) == 0) {
    strThrowOn.clear();
    throw std::runtime_error("scripted failure in WriteDebug");
  }
  scripted::calls().push_back({"WriteDebug", {pszModule, str(eLevel), strLine}});
}

extern "C" int GetPrivateProfileIntA(const char* pszSection, const char* pszKey, int nDefault,
                                     const char* pszFileName) {
  record("GetPrivateProfileIntA", {pszSection, pszKey, str(nDefault), pszFileName});
  auto it = script().mapProfile.find(std::string(pszSection) + "/" + pszKey);
  return it != script().mapProfile.end() ? it->second : nDefault;
}
