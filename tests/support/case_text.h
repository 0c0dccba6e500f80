// The text forms of the plug-in's case files (tests/plugin/cases/README.md),
// shared by the scripted host and the case runner.
//
// A record is written as "part = values" lines: "syslog = on on off -",
// "cpu = on 60 3 90" (mem alike), "fs = on 120 2", "fs.3 = /data 90 on". A
// switch is "on" (0x11), "off" (0x10), "-" (0) or a number ("0x21"). Parts
// that are all 0 are left out; entries come in list order.
#ifndef KTL_TESTS_SUPPORT_CASE_TEXT_H
#define KTL_TESTS_SUPPORT_CASE_TEXT_H

#include <string>
#include <vector>

#include "config/logger_conf.h"

namespace ktl_test {

std::vector<std::string> RecordLines(const Velmora_LoggerConf& conf);

// Sets the part that strPart names ("cpu", "fs.3": an entry is appended).
// Returns "" or what is wrong.
std::string SetRecordPart(Velmora_LoggerConf& conf, const std::string& strPart, const std::string& strValue);

// Text as one printable line: "\\", "\n", "\t", "\0", "\xHH" for other
// control and non-ASCII bytes, and a run of 20 or more equal bytes as
// "{c*N}". Unescape reads that form back.
std::string Escape(const std::string& strText);
std::string Unescape(const std::string& strText);

}  // namespace ktl_test

#endif
