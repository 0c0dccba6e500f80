// A scripted implementation of every host interface, for the plug-in's tests.
//
// A test sets, in script(), what each host call answers, runs the plug-in,
// and reads back calls(): every host call made, in order, with its
// arguments as text (trace lines fully formatted, records handed over as
// the lines of tests/support/record_text.h). reset() restores the
// defaults: every call succeeds, no pending configuration is read, the
// effective configuration is a default record.
#ifndef KTL_TESTS_SUPPORT_SCRIPTED_HOST_H
#define KTL_TESTS_SUPPORT_SCRIPTED_HOST_H

#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "config/logger_conf.h"

namespace scripted {

struct HostCall {
  std::string strName;                 // e.g. "show", "WriteDebug", "initWrite"
  std::vector<std::string> vecArgs;    // the arguments as text
  bool operator==(const HostCall& other) const {
    return strName == other.strName && vecArgs == other.vecArgs;
  }
};

struct Script {
  // Whether host calls and trace lines are kept for calls(). The benchmarks
  // turn it off so that they measure the plug-in, not the bookkeeping.
  bool bRecord = true;

  // CCommand
  int nCheckParamResult = 0;  // non-zero: the word grouping fails
  int nExecResult = 0;        // CCommand::Exec
  int nPpid = 4242;           // GetPPID
  std::string strTemplateName = "logger";

  // CMessage
  std::map<std::string, int> mapShowResult;  // per identifier; default below
  int nShowDefault = 0;
  bool bInquiryAnswer = true;

  // CToolServiceLoggerAcc
  std::deque<int> dqInitWrite;  // answers in order; then nInitWriteDefault
  int nInitWriteDefault = 0;
  bool bCheckProcessId = true;
  int nGetParameterResult = 0;
  Velmora_LoggerConf effective;  // what GetParameter fills in
  bool bReadConfFileResult = false;
  Velmora_LoggerConf pending;  // what ReadConfFile fills in (also on false)
  int nSetParameterResult = 0;
  bool bDiscardResult = true;
  std::map<std::string, std::string> mapStrings;  // "Section/Key" -> value for GetString; absent fails
  std::set<std::string> setFailWrite;             // "Section/Key" whose WriteString fails

  // Template engine
  bool bInitResult = true;
  bool bOutputResult = true;
  std::string strRendered = "rendered\n";

  // ExecSystemCmd: the listing written to the output file; with
  // bMountFileUnreadable the returned path cannot be opened.
  std::string strMountListing;
  bool bMountFileUnreadable = false;

  // GetPrivateProfileIntA: "SECTION/KEY" -> value; absent keys give the default.
  std::map<std::string, int> mapProfile;

  // A host call (by name, as in HostCall::strName) that throws instead of
  // answering: a std::runtime_error, or an int when bThrowNonStd.
  std::string strThrowIn;
  bool bThrowNonStd = false;
  // The first trace line that starts with this text throws (once) instead
  // of being written; empty: traces never throw.
  std::string strThrowOnTrace;
};

Script& script();
std::vector<HostCall>& calls();
void reset();

// Every call except the trace lines, by name.
std::vector<std::string> callNames();
// Paths returned by ExecSystemCmd, in order.
std::vector<std::string>& mountOutputPaths();

}  // namespace scripted

#endif
