#include "tests/plugin/case_file.h"

#include <cstdio>
#include <fstream>
#include <sstream>

namespace ktl_test {

namespace {

std::string Trim(const std::string& strText) {
  const size_t nBegin = strText.find_first_not_of(' ');
  return nBegin == std::string::npos ? "" : strText.substr(nBegin, strText.find_last_not_of(' ') - nBegin + 1);
}

}  // namespace

std::string ReadCaseFile(const std::string& strPath, CaseFile& file) {
  std::ifstream in(strPath);
  if (!in) return "0: cannot be read";
  for (std::string strLine; std::getline(in, strLine);) file.vecLines.push_back(strLine);

  enum { kOutside, kWords, kAnswers, kTranscript } state = kOutside;
  for (size_t n = 0; n <= file.vecLines.size(); ++n) {
    const std::string strLine = n < file.vecLines.size() ? file.vecLines[n] : "";
    const std::string strAt = std::to_string(n + 1) + ": ";
    const bool bTitle = strLine.compare(0, 3, "== ") == 0;
    if (state == kTranscript && (strLine.empty() || bTitle)) {
      file.vecCases.back().nExpectedEnd = n;
      state = kOutside;
    }
    if ((bTitle || n == file.vecLines.size()) && state != kOutside) return strAt + "the case has no \"--\" line";
    if (bTitle) {
      file.vecCases.push_back(Case{strLine.substr(3), n + 1, {}, {}, {}, 0, 0});
      state = kWords;
    } else if (state == kWords) {
      std::istringstream words(strLine);
      std::string strWord;
      if (!(words >> strWord) || strWord != "logger") return strAt + "expected \"logger\" and the words";
      while (words >> strWord) file.vecCases.back().vecWords.push_back(strWord);
      state = kAnswers;
    } else if (state == kAnswers && strLine == "--") {
      file.vecCases.back().nExpectedBegin = n + 1;
      state = kTranscript;
    } else if (state == kAnswers && !strLine.empty() && strLine[0] != '#') {
      const size_t nEquals = strLine.find('=');
      if (nEquals == std::string::npos) return strAt + "expected \"key = value\" or \"--\"";
      file.vecCases.back().vecAnswers.emplace_back(Trim(strLine.substr(0, nEquals)), Trim(strLine.substr(nEquals + 1)));
    } else if (state == kTranscript) {
      file.vecCases.back().vecExpected.push_back(strLine);
    } else if (state == kOutside && !strLine.empty() && strLine[0] != '#' && n < file.vecLines.size()) {
      return strAt + "expected a comment or \"== <title>\"";
    }
  }
  return "";
}

bool RewriteCaseFile(const std::string& strPath, const CaseFile& file,
                     const std::vector<std::vector<std::string> >& vecTranscripts) {
  std::ofstream out(strPath + ".new");
  size_t nNext = 0;
  for (size_t n = 0; n < file.vecCases.size(); ++n) {
    for (; nNext < file.vecCases[n].nExpectedBegin; ++nNext) out << file.vecLines[nNext] << '\n';
    for (const std::string& strLine : vecTranscripts[n]) out << strLine << '\n';
    nNext = file.vecCases[n].nExpectedEnd;
  }
  for (; nNext < file.vecLines.size(); ++nNext) out << file.vecLines[nNext] << '\n';
  out.close();
  return out && std::rename((strPath + ".new").c_str(), strPath.c_str()) == 0;
}

}  // namespace ktl_test
