// Runs the plug-in's case files against the scripted host.
//
//   plugin_case_runner [--update] FILE.case...
//
// Each case drives the whole protocol the way the host does: the factory,
// CheckParam with the case's words, CheckExec, Exec, each only after the
// previous one returned 0, then delete. Its transcript (every host call with
// its arguments, every trace line, the results, standard output) must equal
// the one in the file; a case that differs prints its file, the line where
// it differs and a unified diff. With --update, or KTL_UPDATE_CASES=1, the
// transcripts in the files are rewritten instead, after a deliberate change.
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "plugin/logger_config_cmd.h"
#include "tests/plugin/case_file.h"
#include "tests/support/case_text.h"
#include "tests/support/scripted_host.h"

extern "C" CCommand* GetCommandFactorylogger();

namespace {

typedef std::vector<std::string> Lines;
typedef std::vector<std::pair<std::string, std::string> > Aliases;  // "$name", text

void Replace(std::string& strText, const std::string& strFrom, const std::string& strTo) {
  for (size_t nAt = 0; (nAt = strText.find(strFrom, nAt)) != std::string::npos; nAt += strTo.size())
    strText.replace(nAt, strFrom.size(), strTo);
}

// Runs one protocol step and writes its result, or the exception that left
// it, and what it wrote to standard output. True when it returned 0.
bool Step(const std::string& strName, std::ostringstream& out, const std::function<int()>& step) {
  Lines& transcript = scripted::transcript();
  bool bZero = false;
  try {
    const int nResult = step();
    if (strName != "factory") transcript.push_back(strName + " = " + std::to_string(nResult));
    bZero = nResult == 0;
  } catch (const std::exception& e) {
    transcript.push_back(strName + " threw: " + e.what());
  } catch (...) {
    transcript.push_back(strName + " threw a non-standard exception");
  }
  if (!out.str().empty()) transcript.push_back("stdout: " + ktl_test::Escape(out.str()));
  out.str("");
  return bZero;
}

// The case's transcript, long texts written by their names. Throws
// std::invalid_argument for an answer that the scripted host refuses.
Lines Run(const ktl_test::Case& c, const Aliases& aliases) {
  scripted::reset();
  pExecMethod = nullptr;  // as in a freshly loaded library
  for (const auto& answer : c.vecAnswers) {
    std::string strValue = answer.second;
    for (const auto& alias : aliases) Replace(strValue, alias.first, alias.second);
    const std::string strError = scripted::answer(answer.first, ktl_test::Unescape(strValue));
    if (!strError.empty()) throw std::invalid_argument(strError);
  }
  std::string strCommand = "logger";
  for (const std::string& strWord : c.vecWords) strCommand += " " + strWord;

  std::ostringstream out;
  std::streambuf* pStdout = std::cout.rdbuf(out.rdbuf());
  std::unique_ptr<CCommand> pCmd;
  if (Step("factory", out, [&] { return pCmd.reset(GetCommandFactorylogger()), 0; }) &&
      Step("CheckParam", out, [&] { return pCmd->CheckParam(c.vecWords); }) &&
      Step("CheckExec", out, [&] { return pCmd->CheckExec(); }))
    Step("Exec", out, [&] { return pCmd->Exec(strCommand); });
  pCmd.reset();
  std::cout.rdbuf(pStdout);
  for (const std::string& strPath : scripted::mountOutputPaths())
    if (::access(strPath.c_str(), F_OK) == 0) scripted::transcript().push_back("left behind: the mount listing");

  Lines vecLines = scripted::transcript();
  for (std::string& strLine : vecLines)
    for (const auto& alias : aliases) Replace(strLine, alias.second, alias.first);
  scripted::reset();
  return vecLines;
}

// "$name = text" lines of the file "aliases" beside the case file.
Aliases ReadAliases(const std::string& strCaseFile) {
  std::ifstream in(strCaseFile.substr(0, strCaseFile.rfind('/') + 1) + "aliases");
  Aliases aliases;
  for (std::string strLine; std::getline(in, strLine);) {
    const size_t nEquals = strLine.find(" = ");
    if (strLine.compare(0, 1, "$") == 0 && nEquals != std::string::npos)
      aliases.emplace_back(strLine.substr(0, nEquals), strLine.substr(nEquals + 3));
  }
  return aliases;
}

// One unified diff hunk around the lines that differ, three lines of context.
void PrintDiff(const Lines& vecExpected, const Lines& vecActual) {
  size_t nBegin = 0, nTail = 0;
  while (nBegin < vecExpected.size() && nBegin < vecActual.size() && vecExpected[nBegin] == vecActual[nBegin]) ++nBegin;
  while (nTail + nBegin < vecExpected.size() && nTail + nBegin < vecActual.size() &&
         vecExpected.end()[-1 - nTail] == vecActual.end()[-1 - nTail])
    ++nTail;
  const size_t nFrom = nBegin < 3 ? 0 : nBegin - 3, nContext = std::min<size_t>(nTail, 3);
  const size_t nExpectedEnd = vecExpected.size() - nTail + nContext, nActualEnd = vecActual.size() - nTail + nContext;
  std::cout << "--- expected\n+++ actual\n@@ -" << nFrom + 1 << "," << nExpectedEnd - nFrom << " +" << nFrom + 1 << ","
            << nActualEnd - nFrom << " @@\n";
  for (size_t n = nFrom; n < nBegin; ++n) std::cout << " " << vecExpected[n] << "\n";
  for (size_t n = nBegin; n < vecExpected.size() - nTail; ++n) std::cout << "-" << vecExpected[n] << "\n";
  for (size_t n = nBegin; n < vecActual.size() - nTail; ++n) std::cout << "+" << vecActual[n] << "\n";
  for (size_t n = vecExpected.size() - nTail; n < nExpectedEnd; ++n) std::cout << " " << vecExpected[n] << "\n";
}

}  // namespace

int main(int argc, char** argv) {
  bool bUpdate = std::getenv("KTL_UPDATE_CASES") && std::string(std::getenv("KTL_UPDATE_CASES")) == "1";
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
    for (const ktl_test::Case& c : file.vecCases) {
      try {
        vecTranscripts.push_back(Run(c, aliases));
      } catch (const std::invalid_argument& e) {
        std::cout << strPath << ":" << c.nLine << ": " << e.what() << "\n";
        return 2;
      }
      const Lines& vecActual = vecTranscripts.back();
      if (vecActual == c.vecExpected || bUpdate) continue;
      ++nFailed;
      size_t nSame = 0;
      while (nSame < vecActual.size() && nSame < c.vecExpected.size() && vecActual[nSame] == c.vecExpected[nSame])
        ++nSame;
      std::cout << strPath << ":" << c.nExpectedBegin + nSame + 1 << ": \"" << c.strTitle << "\" differs\n";
      PrintDiff(c.vecExpected, vecActual);
    }
    if (bUpdate && !ktl_test::RewriteCaseFile(strPath, file, vecTranscripts)) {
      std::cout << strPath << ": cannot be rewritten\n";
      return 2;
    }
  }
  return nFailed == 0 ? 0 : 1;
}
