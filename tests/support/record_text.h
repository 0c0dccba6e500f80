// The logger configuration record as compact "key = value" lines, the form
// the plug-in's case files use for the records the host reads and the ones
// the plug-in hands back:
//
//   syslog = on on off -      output, information, warning, error
//   cpu = on 60 3 90          switch, interval, count, threshold (mem alike)
//   fs = on 120 2             switch, interval, count
//   fs.3 = /data 90 on        entry 3: mount point, threshold, switch
//
// A switch reads "on" (0x11), "off" (0x10), "-" (0, not set) or any other
// value in hex ("0x21"). Lines of a default record part are left out; the
// entries come in list order.
#ifndef KTL_TESTS_SUPPORT_RECORD_TEXT_H
#define KTL_TESTS_SUPPORT_RECORD_TEXT_H

#include <string>
#include <vector>

#include "config/logger_conf.h"

namespace ktl_test {

// The record's lines, "key = value", in the order above.
std::vector<std::string> RecordLines(const Velmora_LoggerConf& conf);

// Sets the part of conf that key names ("cpu", "fs.3", ...) from value. An
// entry key appends an entry. Returns "" or what is wrong with the line.
std::string SetRecordPart(Velmora_LoggerConf& conf, const std::string& strKey, const std::string& strValue);

}  // namespace ktl_test

#endif
