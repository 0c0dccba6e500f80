// A scripted implementation of every host interface, for the plug-in's tests,
// benchmarks and fuzzer.
//
// answer() sets what a host call answers, in the "key = value" language of
// the case files (tests/plugin/cases/README.md); unnamed calls succeed.
// transcript() holds every host call made, in order, as "Name(arg, arg)",
// every trace line as "trace <level>: <text>", and the records handed to
// ShowConf and SetParameter as indented lines. reset() forgets both.
#ifndef KTL_TESTS_SUPPORT_SCRIPTED_HOST_H
#define KTL_TESTS_SUPPORT_SCRIPTED_HOST_H

#include <string>
#include <vector>

#include "config/logger_conf.h"

namespace scripted {

// Returns "" or what is wrong with the answer.
std::string answer(const std::string& strKey, const std::string& strValue);
// Answers a whole record: strWhich is "effective" or "pending".
void answerRecord(const std::string& strWhich, const Velmora_LoggerConf& conf);
void reset();
std::vector<std::string>& transcript();
// Off: nothing is written to the transcript (the benchmarks measure the plug-in).
void setRecording(bool bRecording);
// Paths that ExecSystemCmd returned, in order.
const std::vector<std::string>& mountOutputPaths();

}  // namespace scripted

#endif
