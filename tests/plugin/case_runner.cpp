// Runs the plug-in's case files against the scripted host.
//
//   plugin_case_runner [--update] FILE.case...
//
// Each case drives the whole protocol the way the host does: the factory,
// CheckParam with the case's words, CheckExec, Exec, each only after the
// previous one returned 0, then delete. The transcript (every host call with
// its arguments, every trace line, the results, standard output) must equal
// the one in the file; a case that differs prints its file, its line and a
// unified diff. With --update, or KTL_UPDATE_CASES=1, the transcripts in the
// files are rewritten instead, for a deliberate change.
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <stdexcept>

#include "plugin/logger_config_cmd.h"
#include "tests/plugin/case_file.h"
#include "tests/plugin/host_answers.h"
#include "tests/support/scripted_host.h"

extern "C" CCommand* GetCommandFactorylogger();

namespace {

using ktl_test::Case;
using ktl_test::Escape;
typedef std::vector<std::string> Lines;
typedef std::vector<std::pair<std::string, std::string> > Aliases;  // "$name", text

// Standard output sent to a temporary file while a case runs.
class StdoutCapture {
 public:
  StdoutCapture() : m_pFile(std::tmpfile()) {
    std::fflush(stdout);
    m_nSaved = ::dup(1);
    ::dup2(fileno(m_pFile), 1);
  }
  ~StdoutCapture() {
    Take();
    ::dup2(m_nSaved, 1);
    ::close(m_nSaved);
    std::fclose(m_pFile);
  }
  // What was written since the last call.
  std::string Take() {
    std::cout.flush();
    std::fflush(stdout);
    struct stat st;
    ::fstat(fileno(m_pFile), &st);
    std::string strText(static_cast<size_t>(st.st_size) - m_nTaken, '\0');
    if (!strText.empty() && ::pread(fileno(m_pFile), &strText[0], strText.size(), m_nTaken) < 0) strText.clear();
    m_nTaken += strText.size();
    return strText;
  }

 private:
  std::FILE* m_pFile;
  int m_nSaved;
  size_t m_nTaken = 0;
};

void Note(const std::string& strLine) { scripted::calls().push_back(scripted::HostCall{"", {strLine}}); }

// Runs one protocol step; notes its result, or the exception that left it,
// and what it wrote to standard output. True when it returned 0.
bool Step(const std::string& strName, StdoutCapture& capture, const std::function<int()>& step) {
  bool bZero = false;
  try {
    const int nResult = step();
    if (strName != "factory") Note(strName + " = " + std::to_string(nResult));
    bZero = nResult == 0;
  } catch (const std::exception& e) {
    Note(strName + " threw: " + e.what());
  } catch (...) {
    Note(strName + " threw a non-standard exception");
  }
  const std::string strOut = capture.Take();
  if (!strOut.empty()) Note("stdout: " + Escape(strOut));
  return bZero;
}

// What CheckParam selected and parsed: the operation and the members that
// differ from a new object's.
std::string StateText(const CLoggerConfigCmd& cmd) {
  typedef CLoggerConfigCmd C;
  const std::pair<LoggerExecMethod, const char*> kOperations[] = {
      {&C::CmdSyslog, "CmdSyslog"}, {&C::CmdAlert, "CmdAlert"}, {&C::CmdDevice, "CmdDevice"},
      {&C::CmdMount, "CmdMount"},   {&C::Confirm, "Confirm"},   {&C::Discard, "Discard"},
      {&C::Save, "Save"}};
  std::string strText = "state:";
  for (const auto& operation : kOperations)
    if (pExecMethod == operation.first) strText += std::string(" ") + operation.second;
  if (pExecMethod == nullptr) strText += " none";
  const std::pair<const char*, int> kNumbers[] = {
      {"set", cmd.m_nSettingCmd}, {"dev", cmd.m_nDevice}, {"alert", cmd.m_nAlertLevel}, {"int", cmd.m_nInterval},
      {"cnt", cmd.m_nCount},      {"thr", cmd.m_nThreshold}, {"nochk", cmd.m_nNoCheck}};
  if (cmd.m_nOnOff != -1) strText += " onoff=" + std::string(cmd.m_nOnOff == 0x11 ? "on" : "off");
  for (const auto& number : kNumbers)
    if (number.second != (number.first == std::string("set") ? 0 : -1))
      strText += std::string(" ") + number.first + "=" + std::to_string(number.second);
  if (cmd.m_bSkipProcessCheck) strText += " skip";
  if (!cmd.m_strConfirmType.empty()) strText += " type=" + cmd.m_strConfirmType;
  if (!cmd.m_strMountPoint.empty()) strText += " mp=" + Escape(cmd.m_strMountPoint);
  return strText;
}

// The recorded calls as transcript lines.
Lines Transcript(const Aliases& aliases) {
  Lines vecLines;
  for (const scripted::HostCall& call : scripted::calls()) {
    std::string strLine = call.strName;
    if (call.strName.empty()) {
      strLine = call.vecArgs[0];
    } else if (call.strName == "WriteDebug") {
      strLine = "trace " + (call.vecArgs[0] == "cli" ? "" : call.vecArgs[0] + " ") + call.vecArgs[1] + ": " +
                Escape(call.vecArgs[2]);
    } else if (call.strName == "ShowConf" || call.strName == "SetParameter") {
      for (const std::string& strRecordLine : call.vecArgs) strLine += "\n  " + Escape(strRecordLine);
    } else if (!call.vecArgs.empty()) {
      for (size_t n = 0; n < call.vecArgs.size(); ++n)
        strLine += (n ? ", " : "(") + (call.vecArgs[n].empty() ? "\"\"" : Escape(call.vecArgs[n]));
      strLine += ")";
    }
    for (const auto& alias : aliases)
      for (size_t nAt; (nAt = strLine.find(alias.second)) != std::string::npos;)
        strLine.replace(nAt, alias.second.size(), alias.first);
    for (size_t nStart = 0, nEnd; nStart <= strLine.size(); nStart = nEnd + 1) {
      nEnd = std::min(strLine.find('\n', nStart), strLine.size());
      vecLines.push_back(strLine.substr(nStart, nEnd - nStart));
    }
  }
  return vecLines;
}

// The case's transcript. Throws std::invalid_argument for a bad answer.
Lines Run(const Case& c, const Aliases& aliases) {
  scripted::reset();
  pExecMethod = nullptr;  // as in a freshly loaded library
  for (const ktl_test::Answer& answer : c.vecAnswers) {
    std::string strValue = answer.strValue;
    for (const auto& alias : aliases)
      for (size_t nAt; (nAt = strValue.find(alias.first)) != std::string::npos;)
        strValue.replace(nAt, alias.first.size(), alias.second);
    const std::string strError = ktl_test::ApplyHostAnswer(answer.strKey, strValue);
    if (!strError.empty()) throw std::invalid_argument(std::to_string(answer.nLine) + ": " + strError);
  }
  std::string strCommand = "logger";
  for (const std::string& strWord : c.vecWords) strCommand += " " + strWord;
  {
    StdoutCapture capture;
    std::unique_ptr<CCommand> pCmd;
    if (Step("factory", capture, [&] { return pCmd.reset(GetCommandFactorylogger()), 0; })) {
      const bool bChecked = Step("CheckParam", capture, [&] { return pCmd->CheckParam(c.vecWords); });
      Note(StateText(static_cast<CLoggerConfigCmd&>(*pCmd)));
      if (bChecked && Step("CheckExec", capture, [&] { return pCmd->CheckExec(); }))
        Step("Exec", capture, [&] { return pCmd->Exec(strCommand); });
    }
    pCmd.reset();
  }
  for (const std::string& strPath : scripted::mountOutputPaths())
    if (::access(strPath.c_str(), F_OK) == 0) Note("left behind: the mount listing");
  Lines vecTranscript = Transcript(aliases);
  scripted::reset();
  return vecTranscript;
}

// "$name = text" lines of the file "aliases" beside the case files: long
// texts that the transcripts write by name.
Aliases ReadAliases(const std::string& strCaseFile) {
  const size_t nSlash = strCaseFile.rfind('/');
  std::ifstream in((nSlash == std::string::npos ? std::string() : strCaseFile.substr(0, nSlash + 1)) + "aliases");
  Aliases aliases;
  for (std::string strLine; std::getline(in, strLine);) {
    const size_t nEquals = strLine.find(" = ");
    if (!strLine.empty() && strLine[0] == '$' && nEquals != std::string::npos)
      aliases.emplace_back(strLine.substr(0, nEquals), strLine.substr(nEquals + 3));
  }
  // The longest first, so that a text inside another is not named first.
  std::stable_sort(aliases.begin(), aliases.end(),
                   [](const Aliases::value_type& a, const Aliases::value_type& b) { return a.second.size() > b.second.size(); });
  return aliases;
}

void PrintDiff(const Lines& vecExpected, const Lines& vecActual) {
  const std::string strDir = ::getenv("TMPDIR") ? ::getenv("TMPDIR") : "/tmp";
  const std::string strExpected = strDir + "/case-expected-" + std::to_string(::getpid());
  const std::string strActual = strDir + "/case-actual-" + std::to_string(::getpid());
  std::ofstream expected(strExpected), actual(strActual);
  for (const std::string& strLine : vecExpected) expected << strLine << '\n';
  for (const std::string& strLine : vecActual) actual << strLine << '\n';
  expected.close();
  actual.close();
  std::cout.flush();
  const std::string strCommand = "diff -u --label expected --label actual " + strExpected + " " + strActual;
  if (std::system(strCommand.c_str()) == -1) std::cout << "(diff could not be run)\n";
  std::remove(strExpected.c_str());
  std::remove(strActual.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  bool bUpdate = ::getenv("KTL_UPDATE_CASES") && std::string(::getenv("KTL_UPDATE_CASES")) == "1";
  int nFailed = 0;
  for (int n = 1; n < argc; ++n) {
    const std::string strPath = argv[n];
    if (strPath == "--update") {
      bUpdate = true;
      continue;
    }
    ktl_test::CaseFile file;
    const std::string strError = ktl_test::ReadCaseFile(strPath, file);
    if (!strError.empty()) {
      std::cout << strPath << ":" << strError << "\n";
      return 2;
    }
    const Aliases aliases = ReadAliases(strPath);
    std::vector<Lines> vecTranscripts;
    int nFileFailed = 0;
    for (const Case& c : file.vecCases) {
      try {
        vecTranscripts.push_back(Run(c, aliases));
      } catch (const std::invalid_argument& e) {
        std::cout << strPath << ":" << e.what() << "\n";
        return 2;
      }
      if (vecTranscripts.back() == c.vecExpected || bUpdate) continue;
      ++nFileFailed;
      const Lines& vecActual = vecTranscripts.back();
      size_t nSame = 0;
      while (nSame < c.vecExpected.size() && nSame < vecActual.size() && c.vecExpected[nSame] == vecActual[nSame]) ++nSame;
      std::cout << strPath << ":" << c.nExpectedBegin + nSame + 1 << ": case \"" << c.strTitle << "\" (line "
                << c.nLine << ") differs\n";
      PrintDiff(c.vecExpected, vecTranscripts.back());
    }
    if (bUpdate && !ktl_test::RewriteCaseFile(strPath, file, vecTranscripts)) {
      std::cout << strPath << ": could not be rewritten\n";
      return 2;
    }
    std::cout << strPath << ": " << file.vecCases.size() << " cases, " << nFileFailed << " failed\n";
    nFailed += nFileFailed;
  }
  return nFailed == 0 ? 0 : 1;
}
