// The scripted host: answers from scripted::answer(), writes the transcript.
#include "tests/support/scripted_host.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <fstream>
#include <map>
#include <set>
#include <stdexcept>

#include "host/command.h"
#include "host/ktl_util.h"
#include "host/message.h"
#include "host/profile.h"
#include "host/string_util.h"
#include "host/template_engine.h"
#include "host/tool_service_logger_acc.h"
#include "host/trace_utility.h"
#include "tests/support/case_text.h"

namespace scripted {

namespace {

struct State {
  std::map<std::string, std::string> answers;
  Velmora_LoggerConf effective, pending;
  std::deque<int> initWrites;  // answers in order, then 0
  std::string strMountListing;
  std::vector<std::string> transcript, mountPaths;
  bool bRecording = true;
};

State& state() {
  static State s;
  return s;
}

const std::set<std::string> kNumberKeys = {"CCommand::CheckParam", "CCommand::Exec", "GetPPID", "show",
                                           "GetParameter",         "SetParameter"};
const std::set<std::string> kYesNoKeys = {"Inquiry", "CheckProcessId", "ReadConfFile",    "Discard",
                                          "Init",    "Output",         "mount.unreadable"};
const std::set<std::string> kTextKeys = {"template",  "rendered",    "throw",
                                         "throw.int", "throw.trace", "WriteString.fails"};

bool StartsWith(const std::string& strText, const std::string& strPrefix) {
  return strText.compare(0, strPrefix.size(), strPrefix) == 0;
}

std::string Text(const std::string& strKey, const std::string& strDefault = "") {
  auto it = state().answers.find(strKey);
  return it == state().answers.end() ? strDefault : it->second;
}
int Number(const std::string& strKey, int nDefault) {
  auto it = state().answers.find(strKey);
  return it == state().answers.end() ? nDefault : static_cast<int>(std::strtol(it->second.c_str(), nullptr, 0));
}
bool Yes(const std::string& strKey) { return Text(strKey, "yes") == "yes"; }

void Write(const std::string& strLine) {
  if (state().bRecording) state().transcript.push_back(strLine);
}

// Writes the call, then throws when the answers say so.
void Call(const std::string& strName, const std::vector<std::string>& vecArgs = {}) {
  if (state().bRecording) {
    std::string strLine = strName;
    for (size_t n = 0; n < vecArgs.size(); ++n)
      strLine += (n ? ", " : "(") + (vecArgs[n].empty() ? "\"\"" : ktl_test::Escape(vecArgs[n]));
    Write(strLine + (vecArgs.empty() ? "" : ")"));
  }
  if (Text("throw") == strName) throw std::runtime_error("scripted failure in " + strName);
  if (Text("throw.int") == strName) throw 42;
}

void CallWithRecord(const std::string& strName, const Velmora_LoggerConf& conf) {
  Call(strName);
  if (state().bRecording)
    for (const std::string& strLine : ktl_test::RecordLines(conf)) Write("  " + ktl_test::Escape(strLine));
}

std::string VFormat(const char* pszFormat, va_list args) {
  va_list copy;
  va_copy(copy, args);
  const int n = std::vsnprintf(nullptr, 0, pszFormat, copy);
  va_end(copy);
  std::string strText(n > 0 ? static_cast<size_t>(n) : 0, '\0');
  std::vsnprintf(&strText[0], strText.size() + 1, pszFormat, args);
  return strText;
}

}  // namespace

std::string answer(const std::string& strKey, const std::string& strValue) {
  State& s = state();
  const std::string strWrong = "bad value for " + strKey + ": \"" + strValue + "\"";
  if (StartsWith(strKey, "effective.")) return ktl_test::SetRecordPart(s.effective, strKey.substr(10), strValue);
  if (StartsWith(strKey, "pending.")) return ktl_test::SetRecordPart(s.pending, strKey.substr(8), strValue);
  if (strKey == "mount") return s.strMountListing += strValue + "\n", "";
  char* pEnd = nullptr;
  if (strKey == "initWrite") {
    for (const char* p = strValue.c_str(); *p; p = pEnd) {
      s.initWrites.push_back(static_cast<int>(std::strtol(p, &pEnd, 0)));
      if (pEnd == p) return strWrong;
    }
    return "";
  }
  const bool bNumber = kNumberKeys.count(strKey) || StartsWith(strKey, "show.") || StartsWith(strKey, "limit.");
  if (bNumber && (std::strtol(strValue.c_str(), &pEnd, 0), strValue.empty() || *pEnd)) return strWrong;
  if (kYesNoKeys.count(strKey) && strValue != "yes" && strValue != "no") return strWrong;
  if (!bNumber && !kYesNoKeys.count(strKey) && !kTextKeys.count(strKey) && !StartsWith(strKey, "GetString."))
    return "unknown key " + strKey;
  s.answers[strKey] = strValue;
  return "";
}

void answerRecord(const std::string& strWhich, const Velmora_LoggerConf& conf) {
  for (const std::string& strLine : ktl_test::RecordLines(conf)) {
    const size_t nEquals = strLine.find(" = ");
    answer(strWhich + "." + strLine.substr(0, nEquals), strLine.substr(nEquals + 3));
  }
}

void reset() {
  for (const std::string& strPath : state().mountPaths) ::unlink(strPath.c_str());
  state() = State();
}

std::vector<std::string>& transcript() { return state().transcript; }
void setRecording(bool bRecording) { state().bRecording = bRecording; }
const std::vector<std::string>& mountOutputPaths() { return state().mountPaths; }

}  // namespace scripted

using scripted::Call;
using scripted::Number;
using scripted::Text;
using scripted::Yes;

// ---- CCommandParam, CCommand ----

CCommandParam::CCommandParam() {}
CCommandParam::CCommandParam(const CCommandParam& other)
    : m_strOption(other.m_strOption), m_strValue(other.m_strValue) {}
CCommandParam::~CCommandParam() {}

CCommand::CCommand() : m_strTemplateName(Text("template", "logger")) {}
CCommand::~CCommand() {}

int CCommand::CheckParam(std::vector<std::string> vecParam) {
  std::string strWords;
  for (const std::string& strWord : vecParam) strWords += (strWords.empty() ? "" : " ") + strWord;
  Call("CCommand::CheckParam", {strWords});
  if (Number("CCommand::CheckParam", 0) != 0) return Number("CCommand::CheckParam", 0);
  // A word starting with "-" opens a pair; the next word that does not is its value.
  m_vecCommandParam.clear();
  for (const std::string& strWord : vecParam) {
    if (!strWord.empty() && strWord[0] == '-') {
      m_vecCommandParam.push_back(CCommandParam());
      m_vecCommandParam.back().m_strOption = strWord;
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
  Call("CCommand::Exec", {strCommand});
  return Number("CCommand::Exec", 0);
}

int CCommand::SetRequiredValParam(std::vector<std::string>) { return 0; }
int CCommand::CheckServiceStatus() { return 0; }

int CCommand::GetPPID() {
  Call("GetPPID");
  return Number("GetPPID", 4242);
}

// ---- CMessage ----

CMessage::CMessage() { Call("CMessage::CMessage"); }
CMessage::~CMessage() { scripted::Write("CMessage::~CMessage"); }

int CMessage::show(std::string strMsgId, unsigned long ulCode, std::string strExtra) {
  Call("show", {strMsgId, std::to_string(ulCode), strExtra});
  return Number("show." + strMsgId, Number("show", 0));
}

bool CMessage::Inquiry(std::string strMsgId, int nDefault) {
  Call("Inquiry", {strMsgId, std::to_string(nDefault)});
  return Yes("Inquiry");
}

// ---- CToolServiceLoggerAcc ----

CToolServiceLoggerAcc::CToolServiceLoggerAcc() : m_pState(nullptr) {
  Call("CToolServiceLoggerAcc::CToolServiceLoggerAcc");
}
CToolServiceLoggerAcc::~CToolServiceLoggerAcc() { scripted::Write("CToolServiceLoggerAcc::~CToolServiceLoggerAcc"); }

int CToolServiceLoggerAcc::initWrite(int nProcessId) {
  Call("initWrite", {std::to_string(nProcessId)});
  std::deque<int>& answers = scripted::state().initWrites;
  if (answers.empty()) return 0;
  const int nAnswer = answers.front();
  answers.pop_front();
  return nAnswer;
}

bool CToolServiceLoggerAcc::CheckProcessId(int nProcessId) {
  Call("CheckProcessId", {std::to_string(nProcessId)});
  return Yes("CheckProcessId");
}

int CToolServiceLoggerAcc::GetParameter(Velmora_LoggerConf& conf) {
  Call("GetParameter");
  conf = scripted::state().effective;
  return Number("GetParameter", 0);
}

bool CToolServiceLoggerAcc::ReadConfFile(Velmora_LoggerConf& conf) {
  Call("ReadConfFile");
  conf = scripted::state().pending;
  return Text("ReadConfFile", "no") == "yes";
}

int CToolServiceLoggerAcc::SetParameter(Velmora_LoggerConf conf) {
  scripted::CallWithRecord("SetParameter", conf);
  return Number("SetParameter", 0);
}

void CToolServiceLoggerAcc::ShowConf(Velmora_LoggerConf conf) { scripted::CallWithRecord("ShowConf", conf); }

bool CToolServiceLoggerAcc::Discard() {
  Call("Discard");
  return Yes("Discard");
}

bool CToolServiceLoggerAcc::GetString(std::string strSection, std::string strKey, std::string& strValue) {
  Call("GetString", {strSection, strKey});
  const std::string strName = "GetString." + strSection + "/" + strKey;
  if (!scripted::state().answers.count(strName)) return false;
  strValue = Text(strName);
  return true;
}

bool CToolServiceLoggerAcc::WriteString(std::string strSection, std::string strKey, std::string strValue) {
  Call("WriteString", {strSection, strKey, strValue});
  return (" " + Text("WriteString.fails") + " ").find(" " + strSection + "/" + strKey + " ") == std::string::npos;
}

// ---- Template engine ----

CTempleteContext::CTempleteContext() {}
CTempleteContext::~CTempleteContext() {}

bool CTempleteContext::Init(std::string strTemplateName) {
  Call("Init", {strTemplateName});
  m_strTemplateName = strTemplateName;
  return Yes("Init");
}

void CTempleteContext::PutData(std::string strKey, std::string strValue) {
  Call("PutData", {strKey, strValue});
  m_mapData[strKey] = strValue;
}

void CTempleteContext::PutData(std::string strKey, std::vector<std::map<std::string, std::string> > vecRows) {
  std::string strRows;
  for (const auto& row : vecRows) {
    strRows += "{";
    for (const auto& cell : row) strRows += cell.first + "=" + cell.second + ";";
    strRows += "}";
  }
  Call("PutData", {strKey, strRows});
  m_mapData[strKey] = vecRows;
}

CTemplateEngine::CTemplateEngine() {}
CTemplateEngine::~CTemplateEngine() {}

bool CTemplateEngine::Output(CTempleteContext context, std::string& strOutput) {
  Call("Output", {context.m_strTemplateName});
  if (!Yes("Output")) return false;
  strOutput = Text("rendered", "rendered\n");
  return true;
}

// ---- Utilities ----

std::string CStringUtil::StringToLowerCase(std::string strText) {
  Call("StringToLowerCase", {strText});
  std::transform(strText.begin(), strText.end(), strText.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return strText;
}

std::list<std::string> CStringUtil::Split(std::string& strText, const std::string& strSeparator) {
  Call("Split", {strText, strSeparator});
  std::list<std::string> lstPieces;
  for (size_t nStart = 0;;) {
    const size_t nAt = strSeparator.empty() ? std::string::npos : strText.find(strSeparator, nStart);
    lstPieces.push_back(strText.substr(nStart, nAt == std::string::npos ? std::string::npos : nAt - nStart));
    if (nAt == std::string::npos) return lstPieces;
    nStart = nAt + strSeparator.size();
  }
}

std::string CKtlUtil::ExecSystemCmd(const char* pszFormat, ...) {
  va_list args;
  va_start(args, pszFormat);
  const std::string strCommand = scripted::VFormat(pszFormat, args);
  va_end(args);
  Call("ExecSystemCmd", {strCommand});
  if (Text("mount.unreadable") == "yes") return "/nonexistent/scripted-host/mount-output";
  char szPath[] = "/tmp/scripted-host-mount-XXXXXX";
  const int fd = ::mkstemp(szPath);
  if (fd < 0) throw std::runtime_error("scripted host: mkstemp failed");
  ::close(fd);
  std::ofstream(szPath, std::ios::binary) << scripted::state().strMountListing;
  if (scripted::state().bRecording) scripted::state().mountPaths.push_back(szPath);
  return szPath;
}

void CTraceUtility::WriteDebug(const char* pszModule, TRACE_DBG_LEVEL eLevel, const char* pszFormat, ...) {
  if (!scripted::state().bRecording) return;
  va_list args;
  va_start(args, pszFormat);
  const std::string strLine = scripted::VFormat(pszFormat, args);
  va_end(args);
  // A trace throws, once and instead of being written, only when told to.
  std::string& strThrowOn = scripted::state().answers["throw.trace"];
  if (!strThrowOn.empty() && scripted::StartsWith(strLine, strThrowOn)) {
    strThrowOn.clear();
    throw std::runtime_error("scripted failure in WriteDebug");
  }
  scripted::Write("trace " + (std::string(pszModule) == "cli" ? "" : std::string(pszModule) + " ") +
                  std::to_string(eLevel) + ": " + ktl_test::Escape(strLine));
}

extern "C" int GetPrivateProfileIntA(const char* pszSection, const char* pszKey, int nDefault,
                                     const char* pszFileName) {
  Call("GetPrivateProfileIntA", {pszSection, pszKey, std::to_string(nDefault), pszFileName});
  return Number(std::string("limit.") + pszSection + "/" + pszKey, nDefault);
}
