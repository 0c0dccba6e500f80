// The plug-in's case files (tests/plugin/cases/*.case; the format is
// described in tests/plugin/cases/README.md): reading them, writing them
// back with new transcripts, and the escapes used in values and transcripts.
#ifndef KTL_TESTS_PLUGIN_CASE_FILE_H
#define KTL_TESTS_PLUGIN_CASE_FILE_H

#include <string>
#include <vector>

namespace ktl_test {

struct Answer {
  std::string strKey, strValue;  // the value unescaped
  int nLine;                     // 1-based
};

struct Case {
  std::string strTitle;
  int nLine;  // of the title, 1-based
  std::vector<std::string> vecWords;
  std::vector<Answer> vecAnswers;
  std::vector<std::string> vecExpected;  // the transcript as written
  size_t nExpectedBegin, nExpectedEnd;   // its lines in the file, 0-based, end excluded
};

struct CaseFile {
  std::vector<std::string> vecLines;
  std::vector<Case> vecCases;
};

// Reads a case file. Returns "" or "<line>: <what is wrong>".
std::string ReadCaseFile(const std::string& strPath, CaseFile& file);

// Writes the file back with each case's transcript replaced by the one at
// the same position in vecTranscripts.
bool RewriteCaseFile(const std::string& strPath, const CaseFile& file,
                     const std::vector<std::vector<std::string> >& vecTranscripts);

// Text as one printable line: "\\", "\n", "\t", "\0" and "\xHH" for the other
// control and non-ASCII bytes; a run of 20 or more equal bytes as "{c*N}".
std::string Escape(const std::string& strText);
std::string Unescape(const std::string& strText);

}  // namespace ktl_test

#endif
