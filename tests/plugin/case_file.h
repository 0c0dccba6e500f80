// The plug-in's case files (tests/plugin/cases/*.case, described in
// tests/plugin/cases/README.md): reading them, and writing them back with
// new transcripts.
#ifndef KTL_TESTS_PLUGIN_CASE_FILE_H
#define KTL_TESTS_PLUGIN_CASE_FILE_H

#include <string>
#include <utility>
#include <vector>

namespace ktl_test {

struct Case {
  std::string strTitle;
  size_t nLine;  // of the title, 1-based
  std::vector<std::string> vecWords;
  std::vector<std::pair<std::string, std::string> > vecAnswers;  // key, value as written
  std::vector<std::string> vecExpected;                          // the transcript
  size_t nExpectedBegin, nExpectedEnd;                           // its lines in the file, 0-based, end excluded
};

struct CaseFile {
  std::vector<std::string> vecLines;
  std::vector<Case> vecCases;
};

// Returns "" or "<line>: <what is wrong>".
std::string ReadCaseFile(const std::string& strPath, CaseFile& file);

// Writes the file back with each case's transcript replaced by vecTranscripts[n].
bool RewriteCaseFile(const std::string& strPath, const CaseFile& file,
                     const std::vector<std::vector<std::string> >& vecTranscripts);

}  // namespace ktl_test

#endif
