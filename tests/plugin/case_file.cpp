#include "tests/plugin/case_file.h"

#include <cstdio>
#include <fstream>
#include <sstream>

namespace ktl_test {

namespace {

const size_t kShortestRun = 20;

std::string Trim(const std::string& strText) {
  const size_t nBegin = strText.find_first_not_of(' ');
  if (nBegin == std::string::npos) return "";
  return strText.substr(nBegin, strText.find_last_not_of(' ') - nBegin + 1);
}

std::string EscapeChar(unsigned char c) {
  switch (c) {
    case '\\': return "\\\\";
    case '\n': return "\\n";
    case '\t': return "\\t";
    case '\0': return "\\0";
  }
  if (c >= 0x20 && c < 0x7f) return std::string(1, static_cast<char>(c));
  char szHex[8];
  std::snprintf(szHex, sizeof(szHex), "\\x%02X", c);
  return szHex;
}

// Reads one escaped byte at nAt into c; returns the position after it.
size_t UnescapeChar(const std::string& strText, size_t nAt, char& c) {
  if (strText[nAt] != '\\' || nAt + 1 >= strText.size()) {
    c = strText[nAt];
    return nAt + 1;
  }
  const char cNext = strText[nAt + 1];
  if (cNext == 'x' && nAt + 3 < strText.size()) {
    c = static_cast<char>(std::stoi(strText.substr(nAt + 2, 2), nullptr, 16));
    return nAt + 4;
  }
  c = cNext == 'n' ? '\n' : cNext == 't' ? '\t' : cNext == '0' ? '\0' : cNext;
  return nAt + 2;
}

}  // namespace

std::string Escape(const std::string& strText) {
  std::string strOut;
  for (size_t n = 0; n < strText.size();) {
    size_t nEnd = n;
    while (nEnd < strText.size() && strText[nEnd] == strText[n]) ++nEnd;
    const std::string strChar = EscapeChar(static_cast<unsigned char>(strText[n]));
    if (nEnd - n >= kShortestRun) {
      strOut += "{" + strChar + "*" + std::to_string(nEnd - n) + "}";
    } else {
      for (size_t k = n; k < nEnd; ++k) strOut += strChar;
    }
    n = nEnd;
  }
  return strOut;
}

std::string Unescape(const std::string& strText) {
  std::string strOut;
  for (size_t n = 0; n < strText.size();) {
    char c;
    if (strText[n] == '{') {
      // "{c*N}": N times the byte c.
      const size_t nStar = UnescapeChar(strText, n + 1, c);
      const size_t nClose = strText.find('}', nStar);
      if (nStar < strText.size() && strText[nStar] == '*' && nClose != std::string::npos &&
          strText.find_first_not_of("0123456789", nStar + 1) == nClose && nClose > nStar + 1) {
        strOut.append(std::stoul(strText.substr(nStar + 1, nClose - nStar - 1)), c);
        n = nClose + 1;
        continue;
      }
    }
    n = UnescapeChar(strText, n, c);
    strOut += c;
  }
  return strOut;
}

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
    if (n == file.vecLines.size()) return state == kOutside ? "" : strAt + "the case has no \"--\" line";
    if (bTitle) {
      if (state != kOutside) return strAt + "the case above has no \"--\" line";
      file.vecCases.push_back(Case{strLine.substr(3), static_cast<int>(n + 1), {}, {}, {}, 0, 0});
      state = kWords;
    } else if (state == kWords) {
      std::istringstream words(strLine);
      std::string strWord;
      if (!(words >> strWord) || strWord != "logger") return strAt + "expected \"logger\" and the words";
      while (words >> strWord) file.vecCases.back().vecWords.push_back(strWord);
      state = kAnswers;
    } else if (state == kAnswers) {
      if (strLine == "--") {
        file.vecCases.back().nExpectedBegin = n + 1;
        state = kTranscript;
      } else if (!strLine.empty() && strLine[0] != '#') {
        const size_t nEquals = strLine.find('=');
        if (nEquals == std::string::npos) return strAt + "expected \"key = value\" or \"--\"";
        file.vecCases.back().vecAnswers.push_back(
            Answer{Trim(strLine.substr(0, nEquals)), Unescape(Trim(strLine.substr(nEquals + 1))), static_cast<int>(n + 1)});
      }
    } else if (state == kTranscript) {
      file.vecCases.back().vecExpected.push_back(strLine);
    } else if (!strLine.empty() && strLine[0] != '#') {
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
